## Sample files written by other programs read through Octave give the contents
## listed in their expected dumps (for every line kind that cdflib can tell).

%!function compare_with_expected (name)
%!  folder = fullfile (getenv ("CDFGATE_SHARED_DATA"), "samples");
%!  expected = strsplit (fileread (fullfile (folder, [name ".expected.txt"])), "\n");
%!  expected = normalise_dump (expected(! cellfun (@isempty, expected))');
%!  got = cdflib_dump (fullfile (folder, name));
%!  for i = 1:min (numel (got), numel (expected))
%!    if (! strcmp (got{i}, expected{i}))
%!      error ("%s, line %d:\n  expected %s\n  got      %s", name, i, expected{i}, got{i});
%!    endif
%!  endfor
%!  assert (numel (got), numel (expected), [name ": number of lines"]);
%!endfunction

## Row-major, every datatype, 0 to 4 dimensions, multi-dimensional strings.
%!test compare_with_expected ("a_cdf.cdf");
## Per-variable GZIP.
%!test compare_with_expected ("a_cdf_with_compressed_vars.cdf");
## Sparse records, PAD and PREV.
%!test compare_with_expected ("a_sparse_cdf.cdf");
## Every numeric type, MD5 checksum, explicit pad values.
%!test compare_with_expected ("test.cdf");
## rVariables, column-major, network encoding.
%!test compare_with_expected ("ac_k2_mfi_20220101_v03.cdf");
## A version 2 file with per-variable AHUFF.
%!test compare_with_expected ("geocpi0.cdf");
## A version 2 file with whole-file GZIP and column-major records of several
## dimensions.
%!test compare_with_expected ("d103a2x.cdf");
## Version 3.2 defaults.
%!test compare_with_expected ("example1.cdf");

%!test
%! ## Not a CDF at all.
%! file = fullfile (getenv ("CDFGATE_SHARED_DATA"), "samples", "not_a_cdf.cdf");
%! try
%!   cdflib ("open", file);
%!   error ("a non-CDF file was opened");
%! catch err
%!   assert (err.identifier, "QUORIN:imagesci:cdflib:fileOpenError");
%! end_try_catch
