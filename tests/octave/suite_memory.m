## Loops of 100,000 calls show no memory growth: every array the adapter creates
## is either handed to Octave or released, on the error path as well. Growth is
## measured as heap bytes in use (heap_in_use.mex), which, unlike the resident size,
## does not move with the allocator's retained arenas. After a short warm-up (first
## use of Octave's own caches), 100,000 calls may add less than 64 kB: a leak of a
## single byte a call would be 100 kB, of the smallest array several megabytes.

%!function growth = heap_growth (call)
%!  for i = 1:1000
%!    call ();
%!  endfor
%!  before = heap_in_use ();
%!  for i = 1:100000
%!    call ();
%!  endfor
%!  growth = heap_in_use () - before;
%!endfunction

%!function expect_error (varargin)
%!  try
%!    cdflib (varargin{:});
%!  catch
%!    return;
%!  end_try_catch
%!  error ("expected an error");
%!endfunction

%!test
%! growth = heap_growth (@() cdflib ("getConstantValue", "CDF_INT4"));
%! assert (growth < 65536, sprintf ("grew by %d bytes", growth));

%!test
%! growth = heap_growth (@() cdflib ("getConstantNames"));
%! assert (growth < 65536, sprintf ("grew by %d bytes", growth));

%!test
%! ## An error of the gateway, raised through the host's error path.
%! growth = heap_growth (@() expect_error ("close", uint64 (1)));
%! assert (growth < 65536, sprintf ("grew by %d bytes", growth));

%!test
%! ## A standard exception caught at the boundary.
%! growth = heap_growth (@() expect_error (42));
%! assert (growth < 65536, sprintf ("grew by %d bytes", growth));

%!test
%! ## Results large enough to be made as Octave values, of a floating-point class
%! ## and of an integer class; the name they pass under leaves no global behind.
%! target = fullfile (getenv ("CDFGATE_OCTAVE_SCRATCH"), "memory_large.cdf");
%! if (exist (target, "file"))
%!   delete (target);
%! endif
%! id = cdflib ("create", target);
%! unwind_protect
%!   real8 = cdflib ("createVar", id, "r", cdflib ("getConstantValue", "CDF_REAL8"), 1, 10000,
%!                   true, true);
%!   int4 = cdflib ("createVar", id, "i", cdflib ("getConstantValue", "CDF_INT4"), 1, 10000,
%!                  true, true);
%!   cdflib ("putVarRecordData", id, real8, 0, (1:10000) / 3);
%!   cdflib ("putVarRecordData", id, int4, 0, int32 (1:10000));
%!   for var = [real8 int4]
%!     growth = heap_growth (@() cdflib ("getVarRecordData", id, var, 0));
%!     assert (growth < 65536, sprintf ("grew by %d bytes", growth));
%!   endfor
%!   assert (isempty (who ("global")));
%! unwind_protect_cleanup
%!   cdflib ("close", id);
%! end_unwind_protect
