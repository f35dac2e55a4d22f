## Errors reach Octave with their identifier and the catalogue's text, from every
## layer: the command lookup, the argument checks and the host's own conversions.

%!function check_error (identifier, varargin)
%!  try
%!    cdflib (varargin{:});
%!  catch err
%!    assert (err.identifier, identifier);
%!    assert (strncmp (err.message, "cdflib: ", 8), err.message);
%!    return;
%!  end_try_catch
%!  error ("cdflib raised no error for %s", disp (varargin));
%!endfunction

%!test
%! ## Names are matched exactly; the message quotes the name as given.
%! for name = {"Open", "OPEN", "getconstantnames", "", "open "}
%!   try
%!     cdflib (name{1}, "x.cdf");
%!     error ("no error raised");
%!   catch err
%!     assert (err.identifier, "QUORIN:imagesci:cdflib:invalidOperation");
%!     assert (! isempty (strfind (err.message, ["\"" name{1} "\""])), err.message);
%!   end_try_catch
%! endfor

%!test
%! ## Argument counts are checked before any argument is looked at.
%! id = "QUORIN:imagesci:validate:wrongNumberOfInputs";
%! check_error (id);
%! check_error (id, "getVarData", 1, 2);
%! check_error (id, "getVarData", 1, 2, 3, 4, 5);
%! check_error (id, "close");
%! check_error (id, "getLibraryVersion", uint64 (1));
%! check_error (id, "setCompression", 1);

%!test
%! ## A command name that is no character array fails without an identifier and
%! ## with the text of the standard library's exception.
%! for name = {5, {}, uint8("open"), true}
%!   try
%!     cdflib (name{1});
%!     error ("no error raised");
%!   catch err
%!     assert (err.identifier, "");
%!     assert (err.message, "cdflib: basic_string: construction from null is not valid");
%!   end_try_catch
%! endfor

%!test
%! ## A file identifier must be a uint64 scalar and must belong to an open file.
%! check_error ("QUORIN:imagesci:validate:argumentNotUint64Scalar", "close", 1);
%! check_error ("QUORIN:imagesci:validate:argumentNotUint64Scalar", "close", int64 (1));
%! check_error ("QUORIN:imagesci:validate:argumentNotUint64Scalar", "close", uint64 ([1 2]));
%! check_error ("QUORIN:imagesci:validate:argumentNotUint64Scalar", "close", uint64 ([]));
%! check_error ("QUORIN:imagesci:cdflib:invalidFileId", "close", uint64 (12345));
%! check_error ("QUORIN:imagesci:cdflib:invalidFileId", "getFormat", intmax ("uint64"));
%! check_error ("QUORIN:imagesci:cdflib:invalidFileId", "inquire", uint64 (0));

%!test
%! ## The message names the refused argument.
%! try
%!   cdflib ("close", 7);
%! catch err
%!   assert (! isempty (strfind (err.message, "CDFID")), err.message);
%! end_try_catch

%!test
%! ## Integer arguments must be double scalars within the signed 64-bit range.
%! check_error ("QUORIN:imagesci:validate:argumentNotDoubleScalar", "setFileBackward", int32 (1));
%! check_error ("QUORIN:imagesci:validate:argumentNotDoubleScalar", "setFileBackward", [0 1]);
%! check_error ("QUORIN:imagesci:validate:argumentNotDoubleScalar", "setValidate", "1");
%! check_error ("QUORIN:imagesci:validate:argumentOutOfBounds", "setFileBackward", 1e300);
%! check_error ("QUORIN:imagesci:validate:argumentOutOfBounds", "setFileBackward", Inf);
%! check_error ("QUORIN:imagesci:validate:argumentOutOfBounds", "setValidate", -2^63);

%!test
%! ## File names must be ASCII: Octave passes UTF-8, and every byte above 127 is
%! ## refused before any file is touched.
%! scratch = getenv ("CDFGATE_OCTAVE_SCRATCH");
%! for name = {"caf\xC3\xA9.cdf", "\xE2\x82\xAC.cdf"}
%!   target = fullfile (scratch, name{1});
%!   check_error ("QUORIN:imagesci:cdflib:invalidCharError", "create", target);
%!   check_error ("QUORIN:imagesci:cdflib:invalidCharError", "open", target);
%!   assert (! exist (target, "file"));
%! endfor
%! ## Bytes that are not even UTF-8 are refused the same way.
%! check_error ("QUORIN:imagesci:cdflib:invalidCharError", "create", [scratch "/x\xFF.cdf"]);

%!test
%! ## An error leaves no output behind and the next call works normally.
%! clear value;
%! try
%!   value = cdflib ("getConstantValue", "NOT_A_CONSTANT");
%! catch
%! end_try_catch
%! assert (! exist ("value", "var"));
%! assert (cdflib ("getConstantValue", "CDF_INT2"), 2);

%!test
%! ## lasterror keeps the identifier as well.
%! try
%!   cdflib ("nonsense");
%! catch
%! end_try_catch
%! err = lasterror ();
%! assert (err.identifier, "QUORIN:imagesci:cdflib:invalidOperation");
