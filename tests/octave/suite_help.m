## The help text beside cdflib.mex documents every command the gateway knows.

%!test
%! text = evalc ("help cdflib");
%! tokens = regexp (text, 'cdflib \("(\w+)"', "tokens");
%! names = unique (cellfun (@(t) t{1}, tokens, "UniformOutput", false));
%! assert (numel (names), 93);
%! ## Ten extra arguments exceed every command's maximum, so a known command fails
%! ## its count check and an unknown one its lookup.
%! extra = num2cell (zeros (1, 10));
%! for i = 1:numel (names)
%!   try
%!     cdflib (names{i}, extra{:});
%!     error ("%s accepted ten arguments", names{i});
%!   catch err
%!     assert (err.identifier, "QUORIN:imagesci:validate:wrongNumberOfInputs", names{i});
%!   end_try_catch
%! endfor
