## examples/quicklook.m, run as a user runs it (its own octave-cli with a file and a
## picture name), draws its panels into a PNG for sample files of several missions
## and time types, and refuses a file with nothing to plot.

## SAMPLE names a file of the shared samples, or is a path of its own.
%!function [status, output, png] = run_quicklook (sample)
%!  [~, name] = fileparts (sample);
%!  png = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), ["quicklook_" name ".png"]);
%!  if (exist (png, "file"))
%!    delete (png);
%!  endif
%!  file = sample;
%!  if (! any (sample == "/"))
%!    file = fullfile (getenv ("CDFGATE_SHARED_DATA"), "samples", [sample ".cdf"]);
%!  endif
%!  command = sprintf ('"%s" --norc --no-history --no-window-system --path "%s" "%s" "%s" "%s" 2>&1',
%!                     getenv ("CDFGATE_OCTAVE_CLI"), getenv ("CDFGATE_OCTAVE_DIR"),
%!                     fullfile (getenv ("CDFGATE_SOURCE_DIR"), "examples", "quicklook.m"),
%!                     file, png);
%!  [status, output] = system (command);
%!endfunction

%!function check_picture (sample, panels)
%!  [status, output, png] = run_quicklook (sample);
%!  assert (status, 0, output);
%!  assert (! isempty (strfind (output, sprintf ("%d panels written", panels))), output);
%!  fid = fopen (png, "r");
%!  assert (fid >= 0, ["no picture for " sample]);
%!  signature = fread (fid, 8, "uint8=>double")';
%!  fclose (fid);
%!  assert (isequal (signature, [137 80 78 71 13 10 26 10]), ["not a PNG: " png]);
%!  info = imfinfo (png);
%!  assert (info.Height > 200 * panels, sprintf ("%s: %d pixels high", sample, info.Height));
%!endfunction

## EPOCH times, rVariables, a 3-component vector.
%!test check_picture ("ac_k2_mfi_20220101_v03", 3);
## TT2000 times, two time variables in one file.
%!test check_picture ("psp_fld_l2_mag_rtn_1min_20200104_v02", 2);
## TT2000 times, more variables than panels.
%!test check_picture ("mms1", 8);

%!test
%! ## EPOCH16 times, in a file written here.
%! file = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), "quicklook_epoch16.cdf");
%! if (exist (file, "file"))
%!   delete (file);
%! endif
%! k = @(name) cdflib ("getConstantValue", name);
%! id = cdflib ("create", file);
%! t = cdflib ("createVar", id, "t16", k ("CDF_EPOCH16"), 1, [], true, []);
%! x = cdflib ("createVar", id, "x", k ("CDF_DOUBLE"), 1, [], true, []);
%! minutes = 0:59;
%! parts = [repmat([2021; 3; 14; 9], 1, 60); minutes; zeros(5, 60)];
%! cdflib ("hyperPutVarData", id, t, 0, 60, 1, [], [], [], cdflib ("computeEpoch16", parts));
%! cdflib ("hyperPutVarData", id, x, 0, 60, 1, [], [], [], sin (minutes / 10));
%! depend = cdflib ("createAttr", id, "DEPEND_0", k ("VARIABLE_SCOPE"));
%! cdflib ("putAttrEntry", id, depend, x, k ("CDF_CHAR"), "t16");
%! units = cdflib ("createAttr", id, "UNITS", k ("VARIABLE_SCOPE"));
%! cdflib ("putAttrEntry", id, units, x, k ("CDF_CHAR"), "V");
%! cdflib ("close", id);
%! check_picture (file, 1);

%!test
%! ## Variables that depend on a time variable but have no records.
%! [status, output] = run_quicklook ("thg_l2_mag_mek_00000000_v01");
%! assert (status != 0);
%! assert (! isempty (strfind (output, "no numeric variable that depends on a time variable")),
%!         output);
