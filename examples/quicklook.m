## Quick look at a CDF file: every numeric variable that depends on a time
## variable (its DEPEND_0 attribute names a CDF_TIME_TT2000, CDF_EPOCH or
## CDF_EPOCH16 variable) is plotted against time, one panel each, into a PNG.
##
##   scripts/octave examples/quicklook.m FILE.cdf OUT.png
##
## Panels are labelled from the FIELDNAM, LABLAXIS and UNITS attributes where the
## file has them; values equal to FILLVAL or outside VALIDMIN..VALIDMAX are left
## out. Everything is read and converted through cdflib, times included.
1;

function value = constant (name)
  value = cdflib ("getConstantValue", name);
endfunction

## The zEntry of variable attribute NAME for variable V, or [] when there is none.
function value = var_attribute (id, name, v)
  value = [];
  try
    attr = cdflib ("getAttrNum", id, name);
    if (v <= cdflib ("getAttrMaxEntry", id, attr))
      value = cdflib ("getAttrEntry", id, attr, v);
    endif
  catch
    ## no such attribute, or no entry for this variable
  end_try_catch
endfunction

function text = var_text (id, name, v)
  text = strtrim (char (var_attribute (id, name, v)));
endfunction

## Every record of variable V; the record number is the last dimension.
function values = all_records (id, v)
  [~, ~, ~, dims] = cdflib ("inquireVar", id, v);
  count = cdflib ("getVarMaxWrittenRecNum", id, v) + 1;
  values = cdflib ("hyperGetVarData", id, v, 0, count, 1, zeros (size (dims)), dims,
                   ones (size (dims)));
endfunction

## Times of a time variable as Octave date numbers, converted by cdflib.
function t = date_numbers (id, v)
  [~, type] = cdflib ("inquireVar", id, v);
  values = all_records (id, v);
  switch (type)
    case "cdf_time_tt2000"
      parts = cdflib ("breakdownTT2000", values);   # 9-by-N, down to nanoseconds
      seconds = parts(6,:) + parts(7,:) / 1e3 + parts(8,:) / 1e6 + parts(9,:) / 1e9;
    case "cdf_epoch"
      parts = cdflib ("epochBreakdown", values);    # 7-by-N, down to milliseconds
      seconds = parts(6,:) + parts(7,:) / 1e3;
    case "cdf_epoch16"
      parts = cdflib ("epoch16Breakdown", values);  # 10-by-N, down to picoseconds
      seconds = parts(6,:) + parts(7,:) / 1e3 + parts(8,:) / 1e6 + parts(9,:) / 1e9 ...
                + parts(10,:) / 1e12;
    otherwise
      error ("quicklook: %s is not a time variable", cdflib ("getVarName", id, v));
  endswitch
  t = datenum (parts(1,:), parts(2,:), parts(3,:), parts(4,:), parts(5,:), seconds)';
endfunction

## Values of variable V as a records-by-components double matrix, without fill
## values and values outside the valid range.
function y = plot_values (id, v)
  count = cdflib ("getVarMaxWrittenRecNum", id, v) + 1;
  y = reshape (double (all_records (id, v)), [], count)';
  fill = var_attribute (id, "FILLVAL", v);
  if (isnumeric (fill) && ! isempty (fill))
    y(y == double (fill(1))) = NaN;
  endif
  low = var_attribute (id, "VALIDMIN", v);
  high = var_attribute (id, "VALIDMAX", v);
  if (isnumeric (low) && numel (low) == columns (y))
    y(y < double (low(:))') = NaN;
  endif
  if (isnumeric (high) && numel (high) == columns (y))
    y(y > double (high(:))') = NaN;
  endif
endfunction

## Pairs {variable, time variable} worth plotting.
function pairs = time_series (id)
  time_types = {"cdf_time_tt2000", "cdf_epoch", "cdf_epoch16"};
  plain_types = {"cdf_char", "cdf_uchar"};
  [~, ~, ~, nvars] = cdflib ("inquire", id);
  pairs = {};
  for v = 0:nvars-1
    [~, type] = cdflib ("inquireVar", id, v);
    if (any (strcmp (type, [time_types plain_types])))
      continue;
    endif
    depend = var_text (id, "DEPEND_0", v);
    if (isempty (depend) || cdflib ("getVarMaxWrittenRecNum", id, v) < 1)
      continue;
    endif
    try
      t = cdflib ("getVarNum", id, depend);
    catch
      continue;   # names a variable the file does not have
    end_try_catch
    [~, ttype] = cdflib ("inquireVar", id, t);
    if (any (strcmp (ttype, time_types)))
      pairs(end+1,:) = {v, t};
    endif
  endfor
endfunction

function label = axis_label (id, v)
  label = var_text (id, "LABLAXIS", v);
  if (isempty (label))
    label = cdflib ("getVarName", id, v);
  endif
  units = var_text (id, "UNITS", v);
  if (! isempty (units))
    label = sprintf ("%s [%s]", label, units);
  endif
endfunction

function draw_quicklook (file, png)
  id = cdflib ("open", file);
  closer = onCleanup (@() cdflib ("close", id));
  pairs = time_series (id);
  if (isempty (pairs))
    error ("quicklook: %s has no numeric variable that depends on a time variable", file);
  endif
  pairs = pairs(1:min (rows (pairs), 8), :);   # keep the panels readable

  figure_handle = figure ("visible", "off", "position", [0 0 900 220 * rows(pairs)]);
  for p = 1:rows (pairs)
    [v, t] = pairs{p,:};
    subplot (rows (pairs), 1, p);
    times = date_numbers (id, t);
    y = plot_values (id, v);
    if (columns (y) <= 16)
      plot (times, y);
    else
      imagesc (times, 1:columns (y), y');   # many components: a colour panel
      axis xy;
    endif
    xlim ([min(times) max(times) + eps(max (times))]);
    datetick ("x", "keeplimits");
    title (var_text_or_name (id, v), "interpreter", "none");
    ylabel (axis_label (id, v), "interpreter", "none");
  endfor
  xlabel (sprintf ("%s to %s (UTC)", datestr (times(1), 31), datestr (times(end), 31)),
          "interpreter", "none");
  print (figure_handle, png, "-dpng", "-r90");
  close (figure_handle);
  printf ("%s: %d panels written to %s\n", file, rows (pairs), png);
endfunction

function text = var_text_or_name (id, v)
  text = var_text (id, "FIELDNAM", v);
  if (isempty (text))
    text = cdflib ("getVarName", id, v);
  endif
endfunction

args = argv ();
if (numel (args) != 2)
  error ("usage: quicklook.m FILE.cdf OUT.png");
endif
warning ("off", "Octave:gnuplot-graphics");
graphics_toolkit ("gnuplot");
draw_quicklook (args{1}, args{2});
