## lines = cdflib_dump (FILE)
## The contents of a CDF file read through cdflib, in the line format of the
## expected dumps beside the sample files, as far as cdflib can tell them: lines
## that need information cdflib does not give (rVariable or zVariable, virtual
## records, whether a pad value is the default) are written without it, and
## normalise_dump brings an expected dump to the same form.
function lines = cdflib_dump (file)
  id = cdflib ("open", file);
  cleanup = onCleanup (@() cdflib ("close", id));
  lines = [header_lines(id); attribute_lines(id); variable_lines(id); {"end"}];
endfunction

function lines = header_lines (id)
  [encoding, majority, ~, nvars, nattrs] = cdflib ("inquire", id);
  [version, release, increment] = cdflib ("getVersion", id);
  lines = {"cdfdump 1";
           sprintf("encoding %d", cdflib ("getConstantValue", encoding));
           ["majority " strrep(majority, "_MAJOR", "")];
           ["format " strrep(cdflib("getFormat", id), "_FILE", "")];
           sprintf("version %d.%d.%d", version, release, increment);
           ["compression " compression_text(@() cdflib ("getCompression", id))];
           ["checksum " short_name(cdflib("getChecksum", id), "_CHECKSUM")];
           sprintf("attributes %d global %d variable %d", nattrs,
                   cdflib ("getNumgAttributes", id), cdflib ("getNumvAttributes", id));
           sprintf("variables %d", nvars)};
endfunction

function text = compression_text (query)
  [type, parameter] = query ();
  text = strrep (type, "_COMPRESSION", "");
  if (strcmp (text, "NO"))
    text = "NONE";
  elseif (strcmp (text, "GZIP"))
    text = sprintf ("GZIP %d", parameter);
  endif
endfunction

function lines = attribute_lines (id)
  [~, ~, ~, ~, nattrs] = cdflib ("inquire", id);
  lines = {};
  for a = 0:nattrs-1
    [name, scope, maxg, maxz] = cdflib ("inquireAttr", id, a);
    global_scope = strcmp (scope, "GLOBAL_SCOPE");
    if (global_scope)
      count = cdflib ("getNumAttrgEntries", id, a);
      maxentry = maxg;
      lines{end+1,1} = sprintf ("attribute %d %s GLOBAL entries %d maxentry %d", a,
                                quoted (name), count, maxentry);
    else
      count = cdflib ("getNumAttrEntries", id, a);
      maxentry = maxz;
      lines{end+1,1} = sprintf ("attribute %d %s VARIABLE entries %d maxentry %d", a,
                                quoted (name), count, maxentry);
    endif
    for e = 0:maxentry
      lines{end+1,1} = entry_line (id, a, e, global_scope);
    endfor
  endfor
  lines = lines(! cellfun (@isempty, lines));
endfunction

## Empty when the entry does not exist.
function line = entry_line (id, a, e, global_scope)
  try
    if (global_scope)
      [type, n] = cdflib ("inquireAttrgEntry", id, a, e);
    else
      [type, n] = cdflib ("inquireAttrEntry", id, a, e);
    endif
  catch err
    if (strcmp (err.identifier, "QUORIN:imagesci:cdflib:libraryFailure"))
      line = "";
      return;
    endif
    rethrow (err);
  end_try_catch
  type = upper (type);
  if (global_scope)
    value = cdflib ("getAttrgEntry", id, a, e);
    line = sprintf ("  entry %d %s %d: %s", e, type, n, values_text (value, type, n));
  else
    value = cdflib ("getAttrEntry", id, a, e);
    line = sprintf ("  entry %d %s %s %d: %s", e, quoted (cdflib ("getVarName", id, e)),
                    type, n, values_text (value, type, n));
  endif
endfunction

function lines = variable_lines (id)
  [~, majority, ~, nvars] = cdflib ("inquire", id);
  row_major = strcmp (majority, "ROW_MAJOR");
  lines = {};
  for v = 0:nvars-1
    [name, type, n, dims, recvary, dimvarys] = cdflib ("inquireVar", id, v);
    if (row_major)
      dims = fliplr (dims);
      dimvarys = fliplr (dimvarys);
    endif
    type = upper (type);
    maxrec = cdflib ("getVarMaxWrittenRecNum", id, v);
    block = {sprintf("variable %d %s", v, quoted (name));
             sprintf("  type %s %d", type, n);
             ["  dims " integers_text([numel(dims) dims])];
             sprintf("  variances %s/%s", "FT"(recvary + 1), "FT"(dimvarys + 1));
             sprintf("  maxrec %d", maxrec);
             sprintf("  numrecs %d", cdflib ("getVarNumRecsWritten", id, v));
             ["  compression " compression_text(@() cdflib ("getVarCompression", id, v))];
             ["  sparserecords " short_name(cdflib("getVarSparseRecords", id, v), "_SPARSERECORDS")];
             sprintf("  blockingfactor %d", cdflib ("getVarBlockingFactor", id, v));
             ["  pad " values_text(cdflib("getVarPadValue", id, v), type, n)]};
    records = unique ([0:min(2, maxrec), max(0, maxrec-2):maxrec]);
    for r = records(records <= maxrec)
      value = cdflib ("getVarRecordData", id, v, r);
      block{end+1,1} = sprintf ("  record %d: %s", r, values_text (value, type, n));
    endfor
    lines = [lines; block];
  endfor
endfunction

## Integers separated by blanks (sprintf alone prints its format once for no values).
function text = integers_text (values)
  text = strjoin (arrayfun (@(v) sprintf ("%d", v), values, "UniformOutput", false), " ");
endfunction

## "MD5_CHECKSUM" is MD5 in the dump, "NO_CHECKSUM" NONE.
function text = short_name (name, suffix)
  text = strrep (name, suffix, "");
  if (strcmp (text, "NO"))
    text = "NONE";
  endif
endfunction

## The values of one record or entry in storage order, as the dump writes them.
function text = values_text (value, type, n)
  switch (type)
    case {"CDF_CHAR", "CDF_UCHAR"}
      bytes = double (value(:)');
      if (numel (bytes) < n)
        bytes(end+1:n) = 0;   # an entry's text ends at its first NUL
      endif
      strings = reshape (bytes, n, []);
      parts = arrayfun (@(k) quoted (char (strings(:, k)')), 1:columns (strings),
                        "UniformOutput", false);
      text = strjoin (parts, " ");
    case "CDF_EPOCH16"
      pairs = reshape (double (value), 2, []);
      parts = arrayfun (@(k) sprintf ("(%s,%s)", real_text (pairs(1, k)),
                                      real_text (pairs(2, k))), 1:columns (pairs),
                        "UniformOutput", false);
      text = strjoin (parts, " ");
    case {"CDF_REAL4", "CDF_FLOAT", "CDF_REAL8", "CDF_DOUBLE", "CDF_EPOCH"}
      text = real_text (double (value(:)'));
    otherwise
      text = strtrim (sprintf ("%d ", value(:)'));
  endswitch
endfunction

function text = real_text (values)
  text = strtrim (sprintf ("%.17g ", values));
  text = regexprep (text, '-?NaN', "nan");
  text = regexprep (text, 'Inf', "inf");
endfunction

## A name or text in double quotes with the dump's escapes.
function text = quoted (value)
  bytes = double (value);
  parts = cell (1, numel (bytes));
  for i = 1:numel (bytes)
    b = bytes(i);
    if (b == 34)
      parts{i} = '\"';
    elseif (b == 92)
      parts{i} = '\\';
    elseif (b >= 32 && b <= 126)
      parts{i} = char (b);
    else
      parts{i} = sprintf ('\x%02x', b);
    endif
  endfor
  text = ['"' parts{:} '"'];
endfunction
