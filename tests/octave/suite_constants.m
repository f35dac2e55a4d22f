## Constant names and values through Octave: classes, shapes and the lookup rules.

%!test
%! ## Every listed name is a 1-by-N char row that maps back to a real double scalar.
%! names = cdflib ("getConstantNames");
%! assert (iscellstr (names));
%! assert (size (names), [61 1]);
%! for i = 1:numel (names)
%!   assert (rows (names{i}), 1);
%!   value = cdflib ("getConstantValue", names{i});
%!   assert (isa (value, "double") && isscalar (value) && isreal (value), names{i});
%! endfor

%!test
%! ## The names come in byte order, which puts "NOVARY" before "NO_CHECKSUM".
%! names = cdflib ("getConstantNames");
%! assert (names{1}, "AHUFF_COMPRESSION");
%! assert (names{end}, "VAX_ENCODING");
%! assert (issorted (double (char (names)), "rows"));
%! assert (find (strcmp (names, "NOVARY")) < find (strcmp (names, "NO_CHECKSUM")));

%!test
%! ## Lookup folds case; values follow the CDF C interface.
%! cases = {"cdf_int4", 4; "Cdf_Int4", 4; "CDF_TIME_TT2000", 33; "gzip_compression", 5;
%!          "readonlyon", -1; "READONLYon", -1; "VARY", -1; "NOVARY", 0;
%!          "column_major", 2; "ibmpc_encoding", 6; "VARIABLE_SCOPE", 2};
%! for i = 1:rows (cases)
%!   assert (isequal (cdflib ("getConstantValue", cases{i,1}), cases{i,2}), cases{i,1});
%! endfor

%!test
%! ## The message names the upper-cased spelling, not the one given.
%! try
%!   cdflib ("getConstantValue", "cdf_int16");
%!   error ("no error raised");
%! catch err
%!   assert (err.identifier, "QUORIN:imagesci:cdflib:unrecognizedConstantName");
%!   assert (! isempty (strfind (err.message, "CDF_INT16")));
%!   assert (isempty (strfind (err.message, "cdf_int16")));
%! end_try_catch

%!error id=QUORIN:imagesci:cdflib:unrecognizedConstantName cdflib ("getConstantValue", "CDF_INT4 ")
%!error id=QUORIN:imagesci:cdflib:unrecognizedConstantName cdflib ("getConstantValue", "")

%!test
%! ## A UTF-8 name is looked up byte for byte and simply not found.
%! try
%!   cdflib ("getConstantValue", "CDF_\xC3\xA9");
%!   error ("no error raised");
%! catch err
%!   assert (err.identifier, "QUORIN:imagesci:cdflib:unrecognizedConstantName");
%! end_try_catch

%!error id=QUORIN:imagesci:validate:wrongNumberOfInputs cdflib ("getConstantNames", 1)
%!error id=QUORIN:imagesci:validate:wrongNumberOfInputs cdflib ("getConstantValue")
%!error id=QUORIN:imagesci:validate:wrongNumberOfInputs cdflib ("getConstantValue", "a", "b")
