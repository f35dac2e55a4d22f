## Every command family refuses bad input with its identifier, and the message
## carries the arguments that identify the problem, as Octave shows them.

%!function check_refusal (identifier, fragment, varargin)
%!  try
%!    cdflib (varargin{:});
%!  catch err
%!    assert (err.identifier, ["QUORIN:imagesci:" identifier], varargin{1});
%!    assert (isempty (fragment) || ! isempty (strfind (err.message, fragment)),
%!            sprintf ("%s: \"%s\" not in \"%s\"", varargin{1}, fragment, err.message));
%!    return;
%!  end_try_catch
%!  error ("%s was accepted, %s expected", varargin{1}, identifier);
%!endfunction

%!function c = k (name)
%!  c = cdflib ("getConstantValue", name);
%!endfunction

%!shared id, target, x, m, g
%! target = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), "refusals.cdf");
%! if (exist (target, "file"))
%!   delete (target);
%! endif
%! id = cdflib ("create", target);
%! x = cdflib ("createVar", id, "x", k ("CDF_INT2"), 1, [], true, []);
%! m = cdflib ("createVar", id, "m", k ("CDF_INT4"), 1, [2 3], true, [true true]);
%! g = cdflib ("createAttr", id, "title", k ("GLOBAL_SCOPE"));

%!test
%! ## Files and library settings.
%! missing = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), "no_such_file.cdf");
%! cases = {{"cdflib:fileCreateError", "", "create", target},
%!          {"cdflib:fileOpenError", "", "open", missing},
%!          {"cdflib:unrecognizedValue", "BACKWARD MODE", "setFileBackward", -1},
%!          {"cdflib:unrecognizedValue", "file validation mode", "setValidate", 1},
%!          {"validate:argumentNotDoubleScalar", "NUMBUFFERS", "setFormat", id, "x"},
%!          {"validate:argumentNotDoubleScalar", "MAJORITY", "setMajority", id, int8(1)}};
%! for i = 1:numel (cases)
%!   check_refusal (cases{i}{:});
%! endfor

%!test
%! ## Compression.
%! cases = {{"cdflib:invalidCompressionParameter", "GZIP", "setCompression", id, k("GZIP_COMPRESSION"), 10},
%!          {"cdflib:unspecifiedGzipCompressionLevel", "", "setCompression", id, k("GZIP_COMPRESSION")},
%!          {"cdflib:unspecifiedGzipCompressionLevel", "", "setVarCompression", id, x, k("GZIP_COMPRESSION")},
%!          {"cdflib:unrecognizedValue", "COMPRESSION", "setCompression", id, 4}};
%! for i = 1:numel (cases)
%!   check_refusal (cases{i}{:});
%! endfor

%!test
%! ## Variable housekeeping.
%! cases = {{"cdflib:varCacheSizeOpInappropriate", "", "getVarCacheSize", id, x},
%!          {"validate:argumentNotDoubleScalar", "CDFID", "closeVar", id, "x"},
%!          {"cdflib:libraryFailure", "CDFclosezVar", "getVarNum", id, "nothing"},
%!          {"cdflib:libraryFailure", "CDFgetzVarName", "getVarName", id, 99},
%!          {"validate:argumentNotDoubleScalar", "STARTREC", "deleteVarRecords", id, x, "0", 1}};
%! for i = 1:numel (cases)
%!   check_refusal (cases{i}{:});
%! endfor

%!test
%! ## Variable definitions and data.
%! cases = {{"cdflib:mismatchedVarianceSize", "2 dimensions", "createVar", id, "y", k("CDF_INT2"), 1, [2 3], true, true},
%!          {"cdflib:badVarianceDatatype", "", "createVar", id, "y", k("CDF_INT2"), 1, 2, true, "true"},
%!          {"cdflib:unrecognizedValue", "VARIANCE", "createVar", id, "y", k("CDF_INT2"), 1, 2, true, 1},
%!          {"cdflib:cannotOmitDimSpec", "", "getVarData", id, m, 0},
%!          {"cdflib:badDimSpec", "\"m\"", "getVarData", id, m, 0, 0},
%!          {"cdflib:badDimensionExtent", "\"m\"", "putVarData", id, m, 0, 0, int32(1)},
%!          {"cdflib:wrongNumberOfPutVarDataElements", "\"x\"", "putVarData", id, x, 0, [], int16([1 2])},
%!          {"cdflib:wrongNumberOfPutVarRecordDataElements", "\"m\"", "putVarRecordData", id, m, 0, int32(1:5)},
%!          {"cdflib:wrongNumberOfHyperPutVarDataElements", "\"m\"", "hyperPutVarData", id, m, 0, 1, 1, [0 0], [2 3], [1 1], int32(1:5)},
%!          {"cdflib:datatypeMismatch", "CDF_INT2", "putVarData", id, x, 0, [], 1},
%!          {"cdflib:datatypeMismatch", "double", "putVarRecordData", id, x, 0, 1},
%!          {"cdflib:wrongNumberOfPadValueElements", "\"x\"", "setVarPadValue", id, x, int16([1 2])},
%!          {"cdflib:dimSizeTooLarge", "", "hyperGetVarData", id, m, 0, 1, 1, [0 0], [3 3], [1 1]}};
%! for i = 1:numel (cases)
%!   check_refusal (cases{i}{:});
%! endfor

%!test
%! ## Attributes and entries.
%! cases = {{"cdflib:badPutAttrEntryDatatype", "CDF_INT4", "putAttrgEntry", id, g, 0, k("CDF_INT4"), 1.5},
%!          {"cdflib:unrecognizedValue", "DATATYPE", "putAttrgEntry", id, g, 0, 99, "text"},
%!          {"validate:argumentNotDoubleScalar", "ATTNUM", "renameAttr", id, "0", "other"},
%!          {"cdflib:libraryFailure", "CDFgetAttrNum", "getAttrNum", id, "nothing"},
%!          {"cdflib:libraryFailure", "CDFinquireAttrgEntry", "getAttrgEntry", id, g, 5}};
%! for i = 1:numel (cases)
%!   check_refusal (cases{i}{:});
%! endfor

%!test
%! ## Time values.
%! cases = {{"cdflib:badTimeVector", "7", "computeEpoch", [2020 1 1]},
%!          {"cdflib:badTimeVector", "10", "computeEpoch16", [2020 1 1]},
%!          {"cdflib:badTimeVector", "9", "computeTT2000", zeros(1, 10)},
%!          {"cdflib:illegalEpochValue", "", "computeEpoch", [-5 1 1 0 0 0 0]'},
%!          {"cdflib:badEpoch16Modulus", "", "epoch16Breakdown", [1 2 3]},
%!          {"validate:argumentNotDoublePrecision", "EPOCHTIME", "epochBreakdown", int64(5)},
%!          {"validate:argumentNotDoublePrecision", "EPOCH16TIME", "epoch16Breakdown", single([1 2])},
%!          {"validate:argumentNotInt64Scalar", "TT2000TIME", "breakdownTT2000", 5},
%!          {"cdflib:outOfRangeTT2000Value", "", "breakdownTT2000", intmin("int64") + 2},
%!          {"cdflib:outOfRangeTT2000Value", "", "computeTT2000", [3000 1 1 0 0 0 0 0 0]'}};
%! for i = 1:numel (cases)
%!   check_refusal (cases{i}{:});
%! endfor

%!test
%! ## The file is still usable after all of the above, and closes once.
%! cdflib ("putVarRecordData", id, m, 0, int32 ([1 2; 3 4; 5 6]'));
%! cdflib ("close", id);
%! check_refusal ("cdflib:invalidFileId", "", "close", id);
