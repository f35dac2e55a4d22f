## lines = normalise_dump (LINES)
## An expected dump in the form cdflib_dump gives: without the lines cdflib cannot
## tell (leap-second date, rVariable and zVariable counts, rDimensions) and without
## the details it cannot see (the encoding's name, r or z, virtual, default).
function lines = normalise_dump (lines)
  drop = regexp (lines, '^(leapsecondlastupdated|rvariables|zvariables|rdims) ', "once");
  lines = lines(cellfun (@isempty, drop));
  lines = regexprep (lines, '^(encoding \d+) .*$', '$1');
  lines = regexprep (lines, '^(variable \d+ ".*") [rz]$', '$1');
  lines = regexprep (lines, '^(  record \d+) virtual:', '$1:');
  lines = regexprep (lines, '^  pad default ', '  pad ');
endfunction
