## CDFLIB  Low-level access to NASA Common Data Format (CDF) files.
##
##   OUT = cdflib (COMMAND, ARG1, ARG2, ...)
##   [OUT1, OUT2, ...] = cdflib (COMMAND, ...)
##
## COMMAND is one of the 93 command names below, spelled exactly (case matters).
## Conventions:
##   id        file identifier: the uint64 scalar returned by "open" or "create"
##   numbers   every number (variable, attribute, entry and record numbers,
##             counts, modes, datatypes) is a double scalar; non-integral values
##             are truncated toward zero
##   counting  variable, attribute, entry and record numbers start at 0
##   names     symbolic values are passed as numbers: use
##             cdflib ("getConstantValue", "CDF_INT4") and the like
##   order     dimensions and indices are given in Octave's order; for a
##             row-major file they are reversed on the way to the file, so that
##             Octave's column order matches the file's layout
##   classes   written values must have the class of the datatype exactly
##             (CDF_INT1/CDF_BYTE int8, CDF_INT2 int16, CDF_INT4 int32,
##             CDF_INT8/CDF_TIME_TT2000 int64, CDF_UINT1 uint8, CDF_UINT2
##             uint16, CDF_UINT4 uint32, CDF_REAL4/CDF_FLOAT single,
##             CDF_REAL8/CDF_DOUBLE/CDF_EPOCH double, CDF_EPOCH16 double in
##             pairs (a leading dimension of 2), CDF_CHAR/CDF_UCHAR char);
##             nothing is converted
##   file names  must be ASCII
## Errors carry an identifier such as "QUORIN:imagesci:cdflib:invalidFileId";
## catch them with try ... catch err; err.identifier; end_try_catch.
## Files still open when cdflib is cleared or Octave exits are closed, with one
## warning.
##
## Files
##   id = cdflib ("create", FILENAME)         new CDF file, open for writing
##   id = cdflib ("open", FILENAME)           existing CDF file
##   cdflib ("close", id)
##   cdflib ("delete", id)                    close and remove the file
##
## File settings and inquiry
##   [ENCODING, MAJORITY, MAXREC, NUMVARS, NUMATTRS] = cdflib ("inquire", id)
##   NAME = cdflib ("getName", id)
##   [VERSION, RELEASE, INCREMENT] = cdflib ("getVersion", id)
##   TEXT = cdflib ("getCopyright", id)
##   FORMAT = cdflib ("getFormat", id)         cdflib ("setFormat", id, FORMAT)
##   MAJORITY = cdflib ("getMajority", id)     cdflib ("setMajority", id, MAJORITY)
##   CHECKSUM = cdflib ("getChecksum", id)     cdflib ("setChecksum", id, MODE)
##   MODE = cdflib ("getReadOnlyMode", id)     cdflib ("setReadOnlyMode", id, MODE)
##   N = cdflib ("getCacheSize", id)           cdflib ("setCacheSize", id, N)
##   N = cdflib ("getCompressionCacheSize", id)
##                                             cdflib ("setCompressionCacheSize", id, N)
##   N = cdflib ("getStageCacheSize", id)      cdflib ("setStageCacheSize", id, N)
##   cdflib ("setVarsCacheSize", id, N)
##   MAXREC = cdflib ("getVarsMaxWrittenRecNum", id)
##
## Library-wide settings and information
##   MODE = cdflib ("getFileBackward")         cdflib ("setFileBackward", MODE)
##   MODE = cdflib ("getValidate")             cdflib ("setValidate", MODE)
##   [VERSION, RELEASE, INCREMENT] = cdflib ("getLibraryVersion")
##   TEXT = cdflib ("getLibraryCopyright")
##
## Compression
##   [TYPE, PARAM, PERCENT] = cdflib ("getCompression", id)
##   cdflib ("setCompression", id, TYPE [, PARAM])
##   [TYPE, PARAM, PERCENT] = cdflib ("getVarCompression", id, VARNUM)
##   cdflib ("setVarCompression", id, VARNUM, TYPE [, PARAM])
##   GZIP needs a level from 1 to 9 as PARAM.
##
## Variables
##   VARNUM = cdflib ("createVar", id, NAME, DATATYPE, NUMELEMENTS, DIMS,
##                    RECVARY, DIMVARYS)      variances: logical or VARY/NOVARY
##   [NAME, DATATYPE, NUMELEMENTS, DIMS, RECVARY, DIMVARYS] =
##                  cdflib ("inquireVar", id, VARNUM)
##   VARNUM = cdflib ("getVarNum", id, NAME)   NAME = cdflib ("getVarName", id, VARNUM)
##   cdflib ("renameVar", id, VARNUM, NEWNAME)
##   cdflib ("closeVar", id, VARNUM)
##   cdflib ("deleteVar", id, VARNUM)
##   cdflib ("deleteVarRecords", id, VARNUM, STARTREC, ENDREC)
##   N = cdflib ("getVarAllocRecords", id, VARNUM)
##   cdflib ("setVarAllocBlockRecords", id, VARNUM, RECSTART, RECSTOP)
##   cdflib ("setVarInitialRecs", id, VARNUM, NUMRECS)
##   N = cdflib ("getVarBlockingFactor", id, VARNUM)
##   cdflib ("setVarBlockingFactor", id, VARNUM, N)
##   P = cdflib ("getVarReservePercent", id, VARNUM)
##   cdflib ("setVarReservePercent", id, VARNUM, P)
##   N = cdflib ("getVarCacheSize", id, VARNUM)   (multi-file CDFs only)
##   cdflib ("setVarCacheSize", id, VARNUM, N)
##   TYPE = cdflib ("getVarSparseRecords", id, VARNUM)
##   cdflib ("setVarSparseRecords", id, VARNUM, TYPE)
##   R = cdflib ("getVarMaxWrittenRecNum", id, VARNUM)
##   R = cdflib ("getVarMaxAllocRecNum", id, VARNUM)
##   N = cdflib ("getVarNumRecsWritten", id, VARNUM)
##
## Variable data
##   V = cdflib ("getVarData", id, VARNUM, RECNUM [, INDICES])       one value
##   cdflib ("putVarData", id, VARNUM, RECNUM, INDICES, V)
##   R = cdflib ("getVarRecordData", id, VARNUM, RECNUM)             one record
##   cdflib ("putVarRecordData", id, VARNUM, RECNUM, R)
##   H = cdflib ("hyperGetVarData", id, VARNUM, RECSTART, RECCOUNT, RECSTRIDE,
##               DIMSTART, DIMCOUNT, DIMSTRIDE)
##   cdflib ("hyperPutVarData", id, VARNUM, RECSTART, RECCOUNT, RECSTRIDE,
##           DIMSTART, DIMCOUNT, DIMSTRIDE, H)
##   The record count is the last dimension of a hyperslab; writers compare
##   only the number of elements, so what a reader returns can be written back.
##   V = cdflib ("getVarPadValue", id, VARNUM)
##   cdflib ("setVarPadValue", id, VARNUM, V)
##
## Attributes
##   ATTRNUM = cdflib ("createAttr", id, NAME, SCOPE)   GLOBAL_SCOPE or VARIABLE_SCOPE
##   cdflib ("deleteAttr", id, ATTRNUM)
##   cdflib ("renameAttr", id, ATTRNUM, NEWNAME)
##   NAME = cdflib ("getAttrName", id, ATTRNUM)
##   ATTRNUM = cdflib ("getAttrNum", id, NAME)
##   SCOPE = cdflib ("getAttrScope", id, ATTRNUM)
##   [NAME, SCOPE, MAXGENTRY, MAXENTRY] = cdflib ("inquireAttr", id, ATTRNUM)
##   N = cdflib ("getNumgAttributes", id)      N = cdflib ("getNumvAttributes", id)
##
## Attribute entries ("g" commands: entries of global attributes; the others:
## entries of variable attributes, numbered by variable)
##   V = cdflib ("getAttrgEntry", id, ATTRNUM, ENTRYNUM)
##   V = cdflib ("getAttrEntry", id, ATTRNUM, ENTRYNUM)
##   cdflib ("putAttrgEntry", id, ATTRNUM, ENTRYNUM, DATATYPE, V)
##   cdflib ("putAttrEntry", id, ATTRNUM, ENTRYNUM, DATATYPE, V)
##     (both write the kind of entry that the attribute's scope calls for)
##   [DATATYPE, NUMELEMENTS] = cdflib ("inquireAttrgEntry", id, ATTRNUM, ENTRYNUM)
##   [DATATYPE, NUMELEMENTS] = cdflib ("inquireAttrEntry", id, ATTRNUM, ENTRYNUM)
##   cdflib ("deleteAttrgEntry", id, ATTRNUM, ENTRYNUM)
##   cdflib ("deleteAttrEntry", id, ATTRNUM, ENTRYNUM)
##   N = cdflib ("getAttrMaxgEntry", id, ATTRNUM)
##   N = cdflib ("getAttrMaxEntry", id, ATTRNUM)
##   N = cdflib ("getNumAttrgEntries", id, ATTRNUM)
##   N = cdflib ("getNumAttrEntries", id, ATTRNUM)
##
## Time values
##   E = cdflib ("computeEpoch", T)        T: 7-by-N [year month day hour minute
##                                         second millisecond], E: 1-by-N EPOCH
##   T = cdflib ("epochBreakdown", E)      7-by-N
##   E = cdflib ("computeEpoch16", T)      T: 10-by-N (down to picoseconds),
##                                         E: 2-by-N EPOCH16
##   T = cdflib ("epoch16Breakdown", E)    10-by-N
##   TT = cdflib ("computeTT2000", T)      T: 9-by-N (down to nanoseconds),
##                                         TT: 1-by-N int64
##   T = cdflib ("breakdownTT2000", TT)    TT: int64 of any shape, T: 9-by-N
##
## Constants
##   NAMES = cdflib ("getConstantNames")     61-by-1 cell of names
##   V = cdflib ("getConstantValue", NAME)   any letter case
##
## Example
##   id = cdflib ("create", "demo.cdf");
##   v = cdflib ("createVar", id, "x", cdflib ("getConstantValue", "CDF_DOUBLE"),
##               1, [], true, []);
##   cdflib ("putVarRecordData", id, v, 0, pi);
##   cdflib ("close", id);

## This file only carries the help text; the function itself is cdflib.mex, which
## Octave prefers when both sit in the same folder.
error ("cdflib: cdflib.mex is missing from the folder of %s", mfilename ("fullpath"));
