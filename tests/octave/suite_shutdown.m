## Clearing cdflib (as Octave does when it exits) runs the shutdown hook: every
## file still open is closed, with a single warning however many there are.

%!function id = create_file (name)
%!  target = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), name);
%!  if (exist (target, "file"))
%!    delete (target);
%!  endif
%!  id = cdflib ("create", target);
%!endfunction

%!test
%! ## Nothing open: clearing is silent.
%! cdflib ("getConstantValue", "CDF_INT4");
%! output = evalc ("clear cdflib");
%! assert (isempty (strfind (output, "closingFileHandle")), output);
%! assert (isempty (strfind (output, "Closing")), output);

%!test
%! ## Three files open: one warning with its identifier, and the files come back
%! ## whole when opened again.
%! ids = {create_file("shutdown_a.cdf"), create_file("shutdown_b.cdf"), ...
%!        create_file("shutdown_c.cdf")};
%! lastwarn ("");
%! output = evalc ("clear cdflib");
%! assert (numel (strfind (output, "warning:")), 1, output);
%! [message, identifier] = lastwarn ();
%! assert (identifier, "QUORIN:imagesci:cdflib:closingFileHandle");
%! assert (! isempty (message));
%! for name = {"shutdown_a.cdf", "shutdown_b.cdf", "shutdown_c.cdf"}
%!   id = cdflib ("open", fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), name{1}));
%!   cdflib ("close", id);
%! endfor

%!test
%! ## Clearing unloads the gateway: identifiers of the earlier load are unknown to
%! ## the new one, and a second clear has nothing left to close.
%! id = create_file ("shutdown_d.cdf");
%! evalc ("clear cdflib");
%! try
%!   cdflib ("close", id);
%!   error ("the old identifier was accepted");
%! catch err
%!   assert (err.identifier, "QUORIN:imagesci:cdflib:invalidFileId");
%! end_try_catch
%! output = evalc ("clear cdflib");
%! assert (isempty (strfind (output, "warning:")), output);

%!test
%! ## A warning the user turned into an error cannot escape the shutdown hook.
%! state = warning ("query", "QUORIN:imagesci:cdflib:closingFileHandle");
%! warning ("error", "QUORIN:imagesci:cdflib:closingFileHandle");
%! unwind_protect
%!   create_file ("shutdown_e.cdf");
%!   evalc ("clear cdflib");
%! unwind_protect_cleanup
%!   warning (state.state, "QUORIN:imagesci:cdflib:closingFileHandle");
%! end_unwind_protect
%! id = cdflib ("open", fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), "shutdown_e.cdf"));
%! cdflib ("close", id);

%!test
%! ## Octave exiting with files open: one warning, and the file is complete.
%! target = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), "shutdown_exit.cdf");
%! if (exist (target, "file"))
%!   delete (target);
%! endif
%! script = sprintf (["id = cdflib ('create', '%s'); " ...
%!                    "v = cdflib ('createVar', id, 'x', 45, 1, [], true, []); " ...
%!                    "cdflib ('putVarRecordData', id, v, 0, 42);"], target);
%! [status, output] = system (sprintf ('"%s" --norc --no-history --path "%s" --eval "%s" 2>&1',
%!                                     getenv ("CDFGATE_OCTAVE_CLI"),
%!                                     getenv ("CDFGATE_OCTAVE_DIR"), script));
%! assert (status, 0, output);
%! assert (numel (strfind (output, "warning:")), 1, output);
%! assert (! isempty (strfind (output, "cdflib: ")), output);
%! id = cdflib ("open", target);
%! assert (cdflib ("getVarRecordData", id, 0, 0), 42);
%! cdflib ("close", id);
