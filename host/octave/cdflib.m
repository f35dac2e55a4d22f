% CDFLIB  Low-level access to NASA CDF files.
