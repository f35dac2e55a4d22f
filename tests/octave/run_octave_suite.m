## run_octave_suite (NAME)
## Runs the test blocks of the suite file NAME.m and fails (an Octave error, so
## octave-cli exits non-zero) unless every block passes.
function run_octave_suite (name)
  scratch = getenv ("CDFGATE_OCTAVE_SCRATCH");
  if (isempty (scratch))
    error ("run_octave_suite: CDFGATE_OCTAVE_SCRATCH is not set");
  endif
  if (! isfolder (scratch))
    [made, message] = mkdir (scratch);
    if (! made)
      error ("run_octave_suite: cannot make %s: %s", scratch, message);
    endif
  endif
  file = file_in_loadpath ([name ".m"]);
  if (isempty (file))
    error ("run_octave_suite: no suite %s.m on the path", name);
  endif
  [passed, total] = test (file, "normal", stdout);
  printf ("%s: %d of %d blocks passed\n", name, passed, total);
  if (total == 0 || passed != total)
    error ("run_octave_suite: %s failed", name);
  endif
endfunction
