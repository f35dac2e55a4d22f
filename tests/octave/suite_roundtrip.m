## Values written through Octave come back unchanged, of the class their datatype
## maps to, in Octave's dimension order, for every datatype and both majorities.

%!function target = scratch_file (name)
%!  target = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), name);
%!  if (exist (target, "file"))
%!    delete (target);
%!  endif
%!endfunction

%!function c = k (name)
%!  c = cdflib ("getConstantValue", name);
%!endfunction

## One row per datatype: name, Octave class, characters per value.
%!function rows = datatypes ()
%!  rows = {"CDF_INT1", "int8", 1; "CDF_INT2", "int16", 1; "CDF_INT4", "int32", 1;
%!          "CDF_INT8", "int64", 1; "CDF_UINT1", "uint8", 1; "CDF_UINT2", "uint16", 1;
%!          "CDF_UINT4", "uint32", 1; "CDF_REAL4", "single", 1; "CDF_REAL8", "double", 1;
%!          "CDF_EPOCH", "double", 1; "CDF_EPOCH16", "double", 1;
%!          "CDF_TIME_TT2000", "int64", 1; "CDF_BYTE", "int8", 1; "CDF_FLOAT", "single", 1;
%!          "CDF_DOUBLE", "double", 1; "CDF_CHAR", "char", 4; "CDF_UCHAR", "char", 4};
%!endfunction

## Distinct values of class cls filling shape, reaching the ends of integer ranges.
%!function v = pattern (cls, shape, seed)
%!  n = prod (shape);
%!  base = (0:n-1) + 17 * seed;
%!  switch (cls)
%!    case "char"
%!      v = char (mod (base * 7, 95) + 32);
%!    case {"single", "double"}
%!      v = cast ((base - n / 2) * 0.375 + 1e-3 * seed, cls);
%!    otherwise
%!      v = cast (base, cls);
%!      v(1) = intmin (cls);
%!      v(end) = intmax (cls);
%!  endswitch
%!  v = reshape (v, shape);
%!endfunction

%!function check_roundtrip (majority)
%!  dims = [2 3];
%!  table = datatypes ();
%!  for i = 1:rows (table)
%!    [name, cls, nelems] = table{i,:};
%!    target = scratch_file (sprintf ("roundtrip_%s_%s.cdf", majority, name));
%!    id = cdflib ("create", target);
%!    cdflib ("setMajority", id, k (majority));
%!    var = cdflib ("createVar", id, "v", k (name), nelems, dims, true, [true true]);
%!    ## One record in Octave's order: a leading 2 for EPOCH16 and a leading
%!    ## character count for the character types.
%!    if (strcmp (name, "CDF_EPOCH16"))
%!      shape = [2 dims];
%!    elseif (nelems > 1)
%!      shape = [nelems dims];
%!    else
%!      shape = dims;
%!    endif
%!    records = {pattern(cls, shape, 1), pattern(cls, shape, 2), pattern(cls, shape, 3)};
%!    for r = 1:numel (records)
%!      cdflib ("putVarRecordData", id, var, r - 1, records{r});
%!    endfor
%!    cdflib ("close", id);
%!
%!    id = cdflib ("open", target);
%!    assert (cdflib ("getVarMaxWrittenRecNum", id, var), 2);
%!    [vname, vtype, vnelems, vdims] = cdflib ("inquireVar", id, var);
%!    assert (isequal ({vname, vtype, vnelems, vdims}, {"v", lower(name), nelems, dims}), name);
%!    for r = 1:numel (records)
%!      got = cdflib ("getVarRecordData", id, var, r - 1);
%!      assert (strcmp (class (got), cls), [name ": class " class(got)]);
%!      assert (isequal (size (got), shape), [name ": size " mat2str(size (got))]);
%!      assert (isequal (got, records{r}), name);
%!    endfor
%!    ## The hyperslab of all records has the record count as last dimension.
%!    slab = cdflib ("hyperGetVarData", id, var, 0, 3, 1, [0 0], dims, [1 1]);
%!    assert (isequal (slab, cat (numel (shape) + 1, records{:})), name);
%!    cdflib ("close", id);
%!  endfor
%!endfunction

%!test
%! check_roundtrip ("ROW_MAJOR");

%!test
%! check_roundtrip ("COLUMN_MAJOR");

%!test
%! ## One value at Octave indices (i, j) is the element (i+1, j+1) of the record,
%! ## whatever the file's majority.
%! for majority = {"ROW_MAJOR", "COLUMN_MAJOR"}
%!   target = scratch_file (["single_value_" majority{1} ".cdf"]);
%!   id = cdflib ("create", target);
%!   cdflib ("setMajority", id, k (majority{1}));
%!   var = cdflib ("createVar", id, "m", k ("CDF_INT4"), 1, [3 4], true, [true true]);
%!   record = int32 (reshape (1:12, 3, 4));
%!   cdflib ("putVarRecordData", id, var, 0, record);
%!   assert (cdflib ("getVarData", id, var, 0, [2 1]), record(3, 2));
%!   cdflib ("putVarData", id, var, 0, [0 3], int32 (-5));
%!   record(1, 4) = -5;
%!   assert (cdflib ("getVarRecordData", id, var, 0), record);
%!   cdflib ("close", id);
%! endfor

%!test
%! ## Characters are bytes in Octave: bytes above 127 pass unchanged both ways.
%! target = scratch_file ("bytes.cdf");
%! id = cdflib ("create", target);
%! var = cdflib ("createVar", id, "text", k ("CDF_CHAR"), 6, [], true, []);
%! value = char ([99 97 102 195 169 255])';
%! cdflib ("putVarRecordData", id, var, 0, value);
%! got = cdflib ("getVarRecordData", id, var, 0);
%! assert (double (got), double (value));
%! cdflib ("close", id);

%!test
%! ## Nothing is converted: a value of another class is refused with both names.
%! target = scratch_file ("mismatch.cdf");
%! id = cdflib ("create", target);
%! unwind_protect
%!   var = cdflib ("createVar", id, "x", k ("CDF_INT2"), 1, [], true, []);
%!   try
%!     cdflib ("putVarRecordData", id, var, 0, 3);
%!     error ("a double was written to CDF_INT2");
%!   catch err
%!     assert (err.identifier, "QUORIN:imagesci:cdflib:datatypeMismatch");
%!     assert (! isempty (strfind (err.message, "CDF_INT2")));
%!     assert (! isempty (strfind (err.message, "double")));
%!   end_try_catch
%! unwind_protect_cleanup
%!   cdflib ("close", id);
%! end_unwind_protect

%!test
%! ## Pad values and attribute entries of several classes.
%! target = scratch_file ("attributes.cdf");
%! id = cdflib ("create", target);
%! var = cdflib ("createVar", id, "x", k ("CDF_REAL4"), 1, [], true, []);
%! cdflib ("setVarPadValue", id, var, single (-1e31));
%! assert (cdflib ("getVarPadValue", id, var), single (-1e31));
%! g = cdflib ("createAttr", id, "title", k ("GLOBAL_SCOPE"));
%! cdflib ("putAttrgEntry", id, g, 0, k ("CDF_CHAR"), "a title");
%! cdflib ("putAttrgEntry", id, g, 1, k ("CDF_INT8"), int64 ([-1 0 2^40]));
%! u = cdflib ("createAttr", id, "UNITS", k ("VARIABLE_SCOPE"));
%! cdflib ("putAttrEntry", id, u, var, k ("CDF_CHAR"), "nT");
%! cdflib ("close", id);
%! id = cdflib ("open", target);
%! assert (cdflib ("getAttrgEntry", id, g, 0), "a title");
%! assert (cdflib ("getAttrgEntry", id, g, 1), int64 ([-1 0 2^40]));
%! assert (cdflib ("getAttrEntry", id, u, var), "nT");
%! assert (cdflib ("getAttrNum", id, "UNITS"), u);
%! [name, scope] = cdflib ("inquireAttr", id, u);
%! assert (isequal ({name, scope}, {"UNITS", "VARIABLE_SCOPE"}));
%! cdflib ("close", id);

%!test
%! ## Time values: components to EPOCH, EPOCH16 and TT2000 and back.
%! parts = [2020 1 4 12 30 15 250; 1999 12 31 23 59 59 999]';
%! assert (cdflib ("epochBreakdown", cdflib ("computeEpoch", parts)), parts);
%! parts16 = [2020 1 4 12 30 15 250 1 2 3; 1999 12 31 23 59 59 999 4 5 6]';
%! assert (cdflib ("epoch16Breakdown", cdflib ("computeEpoch16", parts16)), parts16);
%! parts2000 = [2016 12 31 23 59 60 500 1 2; 2020 1 4 0 0 0 0 0 0]';
%! tt = cdflib ("computeTT2000", parts2000);
%! assert (class (tt), "int64");
%! assert (cdflib ("breakdownTT2000", tt), parts2000);

%!test
%! ## Large results are made as Octave values rather than copied on return; they
%! ## hold the same values of the same class as small ones, for every class.
%! target = scratch_file ("large.cdf");
%! id = cdflib ("create", target);
%! table = datatypes ();
%! numeric = find (! strcmp (table(:,2), "char"))';
%! for i = numeric
%!   [name, cls] = table{i,1:2};
%!   shape = [3 1000];
%!   if (strcmp (name, "CDF_EPOCH16"))
%!     shape = [2 1000];
%!   endif
%!   var = cdflib ("createVar", id, ["v_" name], k (name), 1, 1000, true, true);
%!   records = pattern (cls, [shape(1) 1000 7], i);
%!   if (strcmp (name, "CDF_EPOCH16"))
%!     cdflib ("hyperPutVarData", id, var, 0, 7, 1, 0, 1000, 1, records);
%!     expected = records;
%!   else
%!     records = records(1, :, :);
%!     cdflib ("hyperPutVarData", id, var, 0, 7, 1, 0, 1000, 1, records);
%!     expected = reshape (records, 1000, 7);
%!   endif
%!   got = cdflib ("hyperGetVarData", id, var, 0, 7, 1, 0, 1000, 1);
%!   assert (strcmp (class (got), cls), [name ": class " class(got)]);
%!   assert (isequal (got, expected), name);
%! endfor
%! cdflib ("close", id);
