/*
 * cdf.h: the C interface of the cdfgate CDF engine.
 *
 * Names, numeric values and C types follow the established CDF C interface, so a
 * C program written against it compiles here and behaves the same. Nothing C++
 * crosses this interface; every failure is a negative status.
 */
#ifndef CDFGATE_CDF_H
#define CDFGATE_CDF_H

#ifdef __cplusplus
extern "C" {
#endif

typedef void *CDFid;
typedef long CDFstatus;

/* ---------------------------------------------------------------- limits */
#define CDF_MAX_DIMS 10
#define CDF_MAX_PARMS 5
#define CDF_VAR_NAME_LEN 64
#define CDF_ATTR_NAME_LEN 64
#define CDF_VAR_NAME_LEN256 256
#define CDF_ATTR_NAME_LEN256 256
#define CDF_COPYRIGHT_LEN 256
#define CDF_STATUSTEXT_LEN 200
#define CDF_PATHNAME_LEN 512

#define EPOCH_STRING_LEN 24
#define EPOCH1_STRING_LEN 16
#define EPOCH2_STRING_LEN 14
#define EPOCH3_STRING_LEN 24
#define EPOCH4_STRING_LEN 23
#define EPOCHx_STRING_MAX 50
#define EPOCHx_FORMAT_MAX 68

#define NO_CDFID ((CDFid)0)
#define RESERVED_CDFID ((CDFid)0)
#define RESERVED_CDFSTATUS ((CDFstatus)(-1))

/* ------------------------------------------------------------ data types */
#define CDF_INT1 1L
#define CDF_INT2 2L
#define CDF_INT4 4L
#define CDF_INT8 8L
#define CDF_UINT1 11L
#define CDF_UINT2 12L
#define CDF_UINT4 14L
#define CDF_REAL4 21L
#define CDF_REAL8 22L
#define CDF_EPOCH 31L
#define CDF_EPOCH16 32L
#define CDF_TIME_TT2000 33L
#define CDF_BYTE 41L
#define CDF_FLOAT 44L
#define CDF_DOUBLE 45L
#define CDF_CHAR 51L
#define CDF_UCHAR 52L

/* -------------------------------------------------------------- variance */
#define VARY (-1L)
#define NOVARY 0L

/* ------------------------------------------------------------- majority */
#define ROW_MAJOR 1L
#define COLUMN_MAJOR 2L

/* --------------------------------------------------------------- format */
#define SINGLE_FILE 1L
#define MULTI_FILE 2L

/* ------------------------------------------------------------- checksum */
#define NO_CHECKSUM 0L
#define MD5_CHECKSUM 1L
#define OTHER_CHECKSUM 2L

/* ---------------------------------------------------------------- scope */
#define GLOBAL_SCOPE 1L
#define VARIABLE_SCOPE 2L
#define GLOBAL_SCOPE_ASSUMED 3L
#define VARIABLE_SCOPE_ASSUMED 4L

/* ---------------------------------------------------------------- modes */
#define READONLYon (-1L)
#define READONLYoff 0L
#define VALIDATEFILEon (-1L)
#define VALIDATEFILEoff 0L
#define zMODEoff 0L
#define zMODEon1 1L
#define zMODEon2 2L
#define NEGtoPOSfp0on (-1L)
#define NEGtoPOSfp0off 0L
#define BACKWARDFILEon 1
#define BACKWARDFILEoff 0

/* ---------------------------------------------------------- compression */
#define NO_COMPRESSION 0L
#define RLE_COMPRESSION 1L
#define HUFF_COMPRESSION 2L
#define AHUFF_COMPRESSION 3L
#define GZIP_COMPRESSION 5L

#define RLE_OF_ZEROs 0L
#define OPTIMAL_ENCODING_TREES 0L
#define NO_SPARSEARRAYS 0L

/* ------------------------------------------------------------ sparseness */
#define NO_SPARSERECORDS 0L
#define PAD_SPARSERECORDS 1L
#define PREV_SPARSERECORDS 2L

/* ------------------------------------------------------------- encodings */
#define NETWORK_ENCODING 1L
#define SUN_ENCODING 2L
#define VAX_ENCODING 3L
#define DECSTATION_ENCODING 4L
#define SGi_ENCODING 5L
#define IBMPC_ENCODING 6L
#define IBMRS_ENCODING 7L
#define HOST_ENCODING 8L
#define PPC_ENCODING 9L
#define MAC_ENCODING 9L
#define HP_ENCODING 11L
#define NeXT_ENCODING 12L
#define ALPHAOSF1_ENCODING 13L
#define ALPHAVMSd_ENCODING 14L
#define ALPHAVMSg_ENCODING 15L
#define ALPHAVMSi_ENCODING 16L
#define ARM_LITTLE_ENCODING 17L
#define ARM_BIG_ENCODING 18L

#define NETWORK_DECODING NETWORK_ENCODING
#define SUN_DECODING SUN_ENCODING
#define VAX_DECODING VAX_ENCODING
#define DECSTATION_DECODING DECSTATION_ENCODING
#define SGi_DECODING SGi_ENCODING
#define IBMPC_DECODING IBMPC_ENCODING
#define IBMRS_DECODING IBMRS_ENCODING
#define HOST_DECODING HOST_ENCODING
#define PPC_DECODING PPC_ENCODING
#define MAC_DECODING MAC_ENCODING
#define HP_DECODING HP_ENCODING
#define NeXT_DECODING NeXT_ENCODING
#define ALPHAOSF1_DECODING ALPHAOSF1_ENCODING
#define ALPHAVMSd_DECODING ALPHAVMSd_ENCODING
#define ALPHAVMSg_DECODING ALPHAVMSg_ENCODING
#define ALPHAVMSi_DECODING ALPHAVMSi_ENCODING

/* ----------------------------------------------------------------- time */
#define ILLEGAL_EPOCH_VALUE (-1.0)
#define ILLEGAL_TT2000_VALUE (-9223372036854775805LL)
#define FILLED_TT2000_VALUE (-9223372036854775807LL - 1LL)
#define DEFAULT_TT2000_PADVALUE (-9223372036854775807LL)
#define TT2000END (-99999.999)
#define TT2000NULL ((double *)0)

/* ------------------------------------------------------------ operations */
#define CREATE_ 1001L
#define OPEN_ 1002L
#define DELETE_ 1003L
#define CLOSE_ 1004L
#define SELECT_ 1005L
#define CONFIRM_ 1006L
#define GET_ 1007L
#define PUT_ 1008L
#define SAVE_ 1009L
#define BACKWARD_ 1010L
#define GETCDFFILEBACKWARD_ 1011L
#define CHECKSUM_ 1012L
#define GETCDFCHECKSUM_ 1013L
#define VALIDATE_ 1014L
#define GETCDFVALIDATE_ 1015L
#define GETLEAPSECONDSENVVAR_ 1016L
#define NULL_ 1000L

/* ----------------------------------------------------------------- items */
#define CDF_ 1L
#define CDF_NAME_ 2L
#define CDF_ENCODING_ 3L
#define CDF_DECODING_ 4L
#define CDF_MAJORITY_ 5L
#define CDF_FORMAT_ 6L
#define CDF_COPYRIGHT_ 7L
#define CDF_NUMrVARS_ 8L
#define CDF_NUMzVARS_ 9L
#define CDF_NUMATTRS_ 10L
#define CDF_NUMgATTRS_ 11L
#define CDF_NUMvATTRS_ 12L
#define CDF_VERSION_ 13L
#define CDF_RELEASE_ 14L
#define CDF_INCREMENT_ 15L
#define CDF_STATUS_ 16L
#define CDF_READONLY_MODE_ 17L
#define CDF_zMODE_ 18L
#define CDF_NEGtoPOSfp0_MODE_ 19L
#define LIB_COPYRIGHT_ 20L
#define LIB_VERSION_ 21L
#define LIB_RELEASE_ 22L
#define LIB_INCREMENT_ 23L
#define LIB_subINCREMENT_ 24L
#define rVARs_NUMDIMS_ 25L
#define rVARs_DIMSIZES_ 26L
#define rVARs_MAXREC_ 27L
#define rVARs_RECDATA_ 28L
#define rVARs_RECNUMBER_ 29L
#define rVARs_RECCOUNT_ 30L
#define rVARs_RECINTERVAL_ 31L
#define rVARs_DIMINDICES_ 32L
#define rVARs_DIMCOUNTS_ 33L
#define rVARs_DIMINTERVALS_ 34L
#define rVAR_ 35L
#define rVAR_NAME_ 36L
#define rVAR_DATATYPE_ 37L
#define rVAR_NUMELEMS_ 38L
#define rVAR_RECVARY_ 39L
#define rVAR_DIMVARYS_ 40L
#define rVAR_NUMBER_ 41L
#define rVAR_DATA_ 42L
#define rVAR_HYPERDATA_ 43L
#define rVAR_SEQDATA_ 44L
#define rVAR_SEQPOS_ 45L
#define rVAR_MAXREC_ 46L
#define rVAR_MAXallocREC_ 47L
#define rVAR_DATASPEC_ 48L
#define rVAR_PADVALUE_ 49L
#define rVAR_INITIALRECS_ 50L
#define rVAR_BLOCKINGFACTOR_ 51L
#define rVAR_nINDEXRECORDS_ 52L
#define rVAR_nINDEXENTRIES_ 53L
#define rVAR_EXISTENCE_ 54L
#define zVARs_MAXREC_ 55L
#define zVARs_RECDATA_ 56L
#define zVAR_ 57L
#define zVAR_NAME_ 58L
#define zVAR_DATATYPE_ 59L
#define zVAR_NUMELEMS_ 60L
#define zVAR_NUMDIMS_ 61L
#define zVAR_DIMSIZES_ 62L
#define zVAR_RECVARY_ 63L
#define zVAR_DIMVARYS_ 64L
#define zVAR_NUMBER_ 65L
#define zVAR_DATA_ 66L
#define zVAR_HYPERDATA_ 67L
#define zVAR_SEQDATA_ 68L
#define zVAR_SEQPOS_ 69L
#define zVAR_MAXREC_ 70L
#define zVAR_MAXallocREC_ 71L
#define zVAR_DATASPEC_ 72L
#define zVAR_PADVALUE_ 73L
#define zVAR_INITIALRECS_ 74L
#define zVAR_BLOCKINGFACTOR_ 75L
#define zVAR_nINDEXRECORDS_ 76L
#define zVAR_nINDEXENTRIES_ 77L
#define zVAR_EXISTENCE_ 78L
#define zVAR_RECNUMBER_ 79L
#define zVAR_RECCOUNT_ 80L
#define zVAR_RECINTERVAL_ 81L
#define zVAR_DIMINDICES_ 82L
#define zVAR_DIMCOUNTS_ 83L
#define zVAR_DIMINTERVALS_ 84L
#define ATTR_ 85L
#define ATTR_SCOPE_ 86L
#define ATTR_NAME_ 87L
#define ATTR_NUMBER_ 88L
#define ATTR_MAXgENTRY_ 89L
#define ATTR_NUMgENTRIES_ 90L
#define ATTR_MAXrENTRY_ 91L
#define ATTR_NUMrENTRIES_ 92L
#define ATTR_MAXzENTRY_ 93L
#define ATTR_NUMzENTRIES_ 94L
#define ATTR_EXISTENCE_ 95L
#define gENTRY_ 96L
#define gENTRY_EXISTENCE_ 97L
#define gENTRY_DATATYPE_ 98L
#define gENTRY_NUMELEMS_ 99L
#define gENTRY_DATASPEC_ 100L
#define gENTRY_DATA_ 101L
#define rENTRY_ 102L
#define rENTRY_NAME_ 103L
#define rENTRY_EXISTENCE_ 104L
#define rENTRY_DATATYPE_ 105L
#define rENTRY_NUMELEMS_ 106L
#define rENTRY_DATASPEC_ 107L
#define rENTRY_DATA_ 108L
#define zENTRY_ 109L
#define zENTRY_NAME_ 110L
#define zENTRY_EXISTENCE_ 111L
#define zENTRY_DATATYPE_ 112L
#define zENTRY_NUMELEMS_ 113L
#define zENTRY_DATASPEC_ 114L
#define zENTRY_DATA_ 115L
#define STATUS_TEXT_ 116L
#define CDF_CACHESIZE_ 117L
#define rVARs_CACHESIZE_ 118L
#define zVARs_CACHESIZE_ 119L
#define rVAR_CACHESIZE_ 120L
#define zVAR_CACHESIZE_ 121L
#define zVARs_RECNUMBER_ 122L
#define rVAR_ALLOCATERECS_ 123L
#define zVAR_ALLOCATERECS_ 124L
#define DATATYPE_SIZE_ 125L
#define CURgENTRY_EXISTENCE_ 126L
#define CURrENTRY_EXISTENCE_ 127L
#define CURzENTRY_EXISTENCE_ 128L
#define CDF_INFO_ 129L
#define CDF_COMPRESSION_ 130L
#define zVAR_COMPRESSION_ 131L
#define zVAR_SPARSERECORDS_ 132L
#define zVAR_SPARSEARRAYS_ 133L
#define zVAR_ALLOCATEBLOCK_ 134L
#define zVAR_NUMRECS_ 135L
#define zVAR_NUMallocRECS_ 136L
#define rVAR_COMPRESSION_ 137L
#define rVAR_SPARSERECORDS_ 138L
#define rVAR_SPARSEARRAYS_ 139L
#define rVAR_ALLOCATEBLOCK_ 140L
#define rVAR_NUMRECS_ 141L
#define rVAR_NUMallocRECS_ 142L
#define rVAR_ALLOCATEDFROM_ 143L
#define rVAR_ALLOCATEDTO_ 144L
#define zVAR_ALLOCATEDFROM_ 145L
#define zVAR_ALLOCATEDTO_ 146L
#define zVAR_nINDEXLEVELS_ 147L
#define rVAR_nINDEXLEVELS_ 148L
#define CDF_SCRATCHDIR_ 149L
#define rVAR_RESERVEPERCENT_ 150L
#define zVAR_RESERVEPERCENT_ 151L
#define rVAR_RECORDS_ 152L
#define zVAR_RECORDS_ 153L
#define STAGE_CACHESIZE_ 154L
#define COMPRESS_CACHESIZE_ 155L
#define CDF_CHECKSUM_ 156L
#define CDF_LEAPSECONDLASTUPDATED_ 157L

/* ------------------------------------------------------------- statuses */
#define VIRTUAL_RECORD_DATA ((CDFstatus)1001)
#define DID_NOT_COMPRESS ((CDFstatus)1002)
#define VAR_ALREADY_CLOSED ((CDFstatus)1003)
#define SINGLE_FILE_FORMAT ((CDFstatus)1004)
#define NO_PADVALUE_SPECIFIED ((CDFstatus)1005)
#define NO_VARS_IN_CDF ((CDFstatus)1006)
#define MULTI_FILE_FORMAT ((CDFstatus)1007)
#define SOME_ALREADY_ALLOCATED ((CDFstatus)1008)
#define PRECEEDING_RECORDS_ALLOCATED ((CDFstatus)1009)
#define TT2000_CDF_MAYNEEDUPDATE ((CDFstatus)1010)
#define BLOCKINGFACTOR_TOO_SMALL ((CDFstatus)1011)
#define BLOCKINGFACTOR_TOO_SMALL2 ((CDFstatus)1012)

#define CDF_OK ((CDFstatus)0)

#define ATTR_NAME_TRUNC ((CDFstatus)(-1001))
#define CDF_NAME_TRUNC ((CDFstatus)(-1002))
#define VAR_NAME_TRUNC ((CDFstatus)(-1003))
#define NEGATIVE_FP_ZERO ((CDFstatus)(-1004))
#define FORCED_PARAMETER ((CDFstatus)(-1006))
#define NA_FOR_VARIABLE ((CDFstatus)(-1007))

#define CDF_WARN ((CDFstatus)(-2000))

#define ATTR_EXISTS ((CDFstatus)(-2001))
#define BAD_CDF_ID ((CDFstatus)(-2002))
#define BAD_DATA_TYPE ((CDFstatus)(-2003))
#define BAD_DIM_SIZE ((CDFstatus)(-2004))
#define BAD_DIM_INDEX ((CDFstatus)(-2005))
#define BAD_ENCODING ((CDFstatus)(-2006))
#define BAD_MAJORITY ((CDFstatus)(-2007))
#define BAD_NUM_DIMS ((CDFstatus)(-2008))
#define BAD_REC_NUM ((CDFstatus)(-2009))
#define BAD_SCOPE ((CDFstatus)(-2010))
#define BAD_NUM_ELEMS ((CDFstatus)(-2011))
#define CDF_OPEN_ERROR ((CDFstatus)(-2012))
#define CDF_EXISTS ((CDFstatus)(-2013))
#define BAD_FORMAT ((CDFstatus)(-2014))
#define BAD_ALLOCATE_RECS ((CDFstatus)(-2015))
#define BAD_CDF_EXTENSION ((CDFstatus)(-2016))
#define NO_SUCH_ATTR ((CDFstatus)(-2017))
#define NO_SUCH_ENTRY ((CDFstatus)(-2018))
#define NO_SUCH_VAR ((CDFstatus)(-2019))
#define VAR_READ_ERROR ((CDFstatus)(-2020))
#define VAR_WRITE_ERROR ((CDFstatus)(-2021))
#define BAD_ARGUMENT ((CDFstatus)(-2022))
#define IBM_PC_OVERFLOW ((CDFstatus)(-2023))
#define TOO_MANY_VARS ((CDFstatus)(-2024))
#define VAR_EXISTS ((CDFstatus)(-2025))
#define BAD_MALLOC ((CDFstatus)(-2026))
#define NOT_A_CDF ((CDFstatus)(-2027))
#define CORRUPTED_V2_CDF ((CDFstatus)(-2028))
#define VAR_OPEN_ERROR ((CDFstatus)(-2029))
#define BAD_INITIAL_RECS ((CDFstatus)(-2030))
#define BAD_BLOCKING_FACTOR ((CDFstatus)(-2031))
#define END_OF_VAR ((CDFstatus)(-2032))
#define BAD_CDFSTATUS ((CDFstatus)(-2034))
#define CDF_INTERNAL_ERROR ((CDFstatus)(-2035))
#define BAD_NUM_VARS ((CDFstatus)(-2036))
#define BAD_REC_COUNT ((CDFstatus)(-2037))
#define BAD_REC_INTERVAL ((CDFstatus)(-2038))
#define BAD_DIM_COUNT ((CDFstatus)(-2039))
#define BAD_DIM_INTERVAL ((CDFstatus)(-2040))
#define BAD_VAR_NUM ((CDFstatus)(-2041))
#define BAD_ATTR_NUM ((CDFstatus)(-2042))
#define BAD_ENTRY_NUM ((CDFstatus)(-2043))
#define BAD_ATTR_NAME ((CDFstatus)(-2044))
#define BAD_VAR_NAME ((CDFstatus)(-2045))
#define NO_ATTR_SELECTED ((CDFstatus)(-2046))
#define NO_ENTRY_SELECTED ((CDFstatus)(-2047))
#define NO_VAR_SELECTED ((CDFstatus)(-2048))
#define BAD_CDF_NAME ((CDFstatus)(-2049))
#define CANNOT_CHANGE ((CDFstatus)(-2051))
#define NO_STATUS_SELECTED ((CDFstatus)(-2052))
#define NO_CDF_SELECTED ((CDFstatus)(-2053))
#define READ_ONLY_DISTRIBUTION ((CDFstatus)(-2054))
#define CDF_CLOSE_ERROR ((CDFstatus)(-2055))
#define VAR_CLOSE_ERROR ((CDFstatus)(-2056))
#define BAD_FNC_OR_ITEM ((CDFstatus)(-2058))
#define ILLEGAL_ON_V1_CDF ((CDFstatus)(-2060))
#define BAD_CACHE_SIZE ((CDFstatus)(-2063))
#define CDF_CREATE_ERROR ((CDFstatus)(-2066))
#define NO_SUCH_CDF ((CDFstatus)(-2067))
#define VAR_CREATE_ERROR ((CDFstatus)(-2068))
#define READ_ONLY_MODE ((CDFstatus)(-2070))
#define ILLEGAL_IN_zMODE ((CDFstatus)(-2071))
#define BAD_zMODE ((CDFstatus)(-2072))
#define BAD_READONLY_MODE ((CDFstatus)(-2073))
#define CDF_READ_ERROR ((CDFstatus)(-2074))
#define CDF_WRITE_ERROR ((CDFstatus)(-2075))
#define ILLEGAL_FOR_SCOPE ((CDFstatus)(-2076))
#define NO_MORE_ACCESS ((CDFstatus)(-2077))
#define BAD_DECODING ((CDFstatus)(-2079))
#define BAD_NEGtoPOSfp0_MODE ((CDFstatus)(-2081))
#define UNSUPPORTED_OPERATION ((CDFstatus)(-2082))
#define CDF_SAVE_ERROR ((CDFstatus)(-2083))
#define VAR_SAVE_ERROR ((CDFstatus)(-2084))
#define NO_WRITE_ACCESS ((CDFstatus)(-2086))
#define NO_DELETE_ACCESS ((CDFstatus)(-2087))
#define CDF_DELETE_ERROR ((CDFstatus)(-2088))
#define VAR_DELETE_ERROR ((CDFstatus)(-2089))
#define UNKNOWN_COMPRESSION ((CDFstatus)(-2090))
#define CANNOT_COMPRESS ((CDFstatus)(-2091))
#define DECOMPRESSION_ERROR ((CDFstatus)(-2092))
#define COMPRESSION_ERROR ((CDFstatus)(-2093))
#define EMPTY_COMPRESSED_CDF ((CDFstatus)(-2096))
#define BAD_COMPRESSION_PARM ((CDFstatus)(-2097))
#define UNKNOWN_SPARSENESS ((CDFstatus)(-2098))
#define CANNOT_SPARSERECORDS ((CDFstatus)(-2099))
#define CANNOT_SPARSEARRAYS ((CDFstatus)(-2100))
#define TOO_MANY_PARMS ((CDFstatus)(-2101))
#define NO_SUCH_RECORD ((CDFstatus)(-2102))
#define CANNOT_ALLOCATE_RECORDS ((CDFstatus)(-2103))
#define SCRATCH_DELETE_ERROR ((CDFstatus)(-2106))
#define SCRATCH_CREATE_ERROR ((CDFstatus)(-2107))
#define SCRATCH_READ_ERROR ((CDFstatus)(-2108))
#define SCRATCH_WRITE_ERROR ((CDFstatus)(-2109))
#define BAD_SPARSEARRAYS_PARM ((CDFstatus)(-2110))
#define BAD_SCRATCH_DIR ((CDFstatus)(-2111))
#define NOT_A_CDF_OR_NOT_SUPPORTED ((CDFstatus)(-2113))
#define CORRUPTED_V3_CDF ((CDFstatus)(-2223))
#define ILLEGAL_EPOCH_FIELD ((CDFstatus)(-2224))
#define BAD_CHECKSUM ((CDFstatus)(-2225))
#define CHECKSUM_ERROR ((CDFstatus)(-2226))
#define CHECKSUM_NOT_ALLOWED ((CDFstatus)(-2227))
#define IS_A_NETCDF ((CDFstatus)(-2228))
#define TT2000_TIME_ERROR ((CDFstatus)(-2229))
#define UNABLE_TO_PROCESS_CDF ((CDFstatus)(-2230))
#define ZLIB_COMPRESS_ERROR ((CDFstatus)(-2231))
#define ZLIB_UNCOMPRESS_ERROR ((CDFstatus)(-2232))
#define CANNOT_INSERT_RECORDS ((CDFstatus)(-2233))
#define TT2000_USED_OUTDATED_TABLE ((CDFstatus)(-2234))
#define BADDATE_LEAPSECOND_UPDATED ((CDFstatus)(-2235))
#define FUNCTION_NOT_SUPPORTED ((CDFstatus)(-2236))

/* ------------------------------------------------------ entry point */
CDFstatus CDFlib(long requiredFnc, ...);

/* ---------------------------------------------------- standard interface */
CDFstatus CDFcreateCDF(char *CDFname, CDFid *id);
long CDFgetVarNum(CDFid id, char *varName);
long CDFgetAttrNum(CDFid id, char *attrName);
CDFstatus CDFgetVarRecordData(CDFid id, int zVar, long varNum, long recNum, void *buffer);
CDFstatus CDFputVarRecordData(CDFid id, int zVar, long varNum, long recNum, void *buffer);
CDFstatus CDFinquireAttr(CDFid id, long attrNum, char *attrName, long *attrScope,
                         long *maxgEntry, long *maxrEntry, long *maxzEntry);
CDFstatus CDFinquireAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum,
                              long *dataType, long *numElems);
CDFstatus CDFgetAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum, void *value);
CDFstatus CDFputAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum, long dataType,
                          long numElems, void *value);
CDFstatus CDFdeleteAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum);
CDFstatus CDFgetAttrMaxEntry(CDFid id, int grzEntry, long attrNum, long *maxEntry);
CDFstatus CDFgetNumAttrEntries(CDFid id, int grzEntry, long attrNum, long *numEntries);

int CDFgetFileBackward(void);
void CDFsetFileBackward(int flag);
int CDFgetValidate(void);
void CDFsetValidate(long mode);

/* ------------------------------------------------------------- time */
double computeEPOCH(long year, long month, long day, long hour, long minute, long second,
                    long msec);
void EPOCHbreakdown(double epoch, long *year, long *month, long *day, long *hour, long *minute,
                    long *second, long *msec);
double computeEPOCH16(long year, long month, long day, long hour, long minute, long second,
                      long msec, long usec, long nsec, long psec, double *epoch);
void EPOCH16breakdown(double *epoch, long *year, long *month, long *day, long *hour,
                      long *minute, long *second, long *msec, long *usec, long *nsec,
                      long *psec);
long long CDF_TT2000_from_UTC_parts(double year, double month, double day, ...);
void CDF_TT2000_to_UTC_parts(long long tt2000, double *year, double *month, double *day, ...);

#define computeTT2000 CDF_TT2000_from_UTC_parts
#define breakdownTT2000 CDF_TT2000_to_UTC_parts
#define TT2000breakdown CDF_TT2000_to_UTC_parts

/* ------------------------------------------------- usual macro spellings */
#define CDFopen(name, id) CDFlib(OPEN_, CDF_, name, id, NULL_)
#define CDFopenCDF(name, id) CDFlib(OPEN_, CDF_, name, id, NULL_)
#define CDFclose(id) CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_)
#define CDFcloseCDF(id) CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_)
#define CDFdelete(id) CDFlib(SELECT_, CDF_, id, DELETE_, CDF_, NULL_)
#define CDFdeleteCDF(id) CDFlib(SELECT_, CDF_, id, DELETE_, CDF_, NULL_)
#define CDFerror(status, text) CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, text, NULL_)
#define CDFgetStatusText(status, text) \
    CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, text, NULL_)
#define CDFgetzMode(id, mode) CDFlib(SELECT_, CDF_, id, CONFIRM_, CDF_zMODE_, mode, NULL_)
#define CDFsetzMode(id, mode) CDFlib(SELECT_, CDF_, id, SELECT_, CDF_zMODE_, mode, NULL_)
#define CDFgetReadOnlyMode(id, mode) \
    CDFlib(SELECT_, CDF_, id, CONFIRM_, CDF_READONLY_MODE_, mode, NULL_)
#define CDFsetReadOnlyMode(id, mode) \
    CDFlib(SELECT_, CDF_, id, SELECT_, CDF_READONLY_MODE_, mode, NULL_)
#define CDFgetFormat(id, format) CDFlib(SELECT_, CDF_, id, GET_, CDF_FORMAT_, format, NULL_)
#define CDFsetFormat(id, format) CDFlib(SELECT_, CDF_, id, PUT_, CDF_FORMAT_, format, NULL_)
#define CDFgetMajority(id, majority) \
    CDFlib(SELECT_, CDF_, id, GET_, CDF_MAJORITY_, majority, NULL_)
#define CDFsetMajority(id, majority) \
    CDFlib(SELECT_, CDF_, id, PUT_, CDF_MAJORITY_, majority, NULL_)
#define CDFgetEncoding(id, encoding) \
    CDFlib(SELECT_, CDF_, id, GET_, CDF_ENCODING_, encoding, NULL_)
#define CDFsetEncoding(id, encoding) \
    CDFlib(SELECT_, CDF_, id, PUT_, CDF_ENCODING_, encoding, NULL_)
#define CDFgetChecksum(id, checksum) \
    CDFlib(SELECT_, CDF_, id, GET_, CDF_CHECKSUM_, checksum, NULL_)
#define CDFsetChecksum(id, checksum) \
    CDFlib(SELECT_, CDF_, id, PUT_, CDF_CHECKSUM_, checksum, NULL_)
#define CDFgetCopyright(id, text) CDFlib(SELECT_, CDF_, id, GET_, CDF_COPYRIGHT_, text, NULL_)
#define CDFgetLibraryCopyright(text) CDFlib(GET_, LIB_COPYRIGHT_, text, NULL_)
#define CDFgetLibraryVersion(version, release, increment, subincrement)                 \
    CDFlib(GET_, LIB_VERSION_, version, GET_, LIB_RELEASE_, release, GET_, LIB_INCREMENT_, \
           increment, GET_, LIB_subINCREMENT_, subincrement, NULL_)
#define CDFgetVersion(id, version, release, increment)                                    \
    CDFlib(SELECT_, CDF_, id, GET_, CDF_VERSION_, version, GET_, CDF_RELEASE_, release, GET_, \
           CDF_INCREMENT_, increment, NULL_)
#define CDFgetNumAttributes(id, numAttrs) \
    CDFlib(SELECT_, CDF_, id, GET_, CDF_NUMATTRS_, numAttrs, NULL_)
#define CDFgetNumgAttributes(id, numAttrs) \
    CDFlib(SELECT_, CDF_, id, GET_, CDF_NUMgATTRS_, numAttrs, NULL_)
#define CDFgetNumvAttributes(id, numAttrs) \
    CDFlib(SELECT_, CDF_, id, GET_, CDF_NUMvATTRS_, numAttrs, NULL_)
#define CDFgetNumzVars(id, numVars) CDFlib(SELECT_, CDF_, id, GET_, CDF_NUMzVARS_, numVars, NULL_)
#define CDFgetNumrVars(id, numVars) CDFlib(SELECT_, CDF_, id, GET_, CDF_NUMrVARS_, numVars, NULL_)
#define CDFgetzVarsMaxWrittenRecNum(id, maxRec) \
    CDFlib(SELECT_, CDF_, id, GET_, zVARs_MAXREC_, maxRec, NULL_)
#define CDFcreateAttr(id, name, scope, num) \
    CDFlib(SELECT_, CDF_, id, CREATE_, ATTR_, name, scope, num, NULL_)
#define CDFdeleteAttr(id, num) CDFlib(SELECT_, CDF_, id, SELECT_, ATTR_, num, DELETE_, ATTR_, NULL_)
#define CDFrenameAttr(id, num, name) \
    CDFlib(SELECT_, CDF_, id, SELECT_, ATTR_, num, PUT_, ATTR_NAME_, name, NULL_)
#define CDFgetAttrName(id, num, name) \
    CDFlib(SELECT_, CDF_, id, SELECT_, ATTR_, num, GET_, ATTR_NAME_, name, NULL_)
#define CDFgetAttrScope(id, num, scope) \
    CDFlib(SELECT_, CDF_, id, SELECT_, ATTR_, num, GET_, ATTR_SCOPE_, scope, NULL_)
#define CDFcreatezVar(id, name, dataType, numElems, numDims, dimSizes, recVary, dimVarys, num) \
    CDFlib(SELECT_, CDF_, id, CREATE_, zVAR_, name, dataType, numElems, numDims, dimSizes,   \
           recVary, dimVarys, num, NULL_)
#define CDFdeletezVar(id, num) CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, DELETE_, zVAR_, NULL_)
#define CDFrenamezVar(id, num, name) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, PUT_, zVAR_NAME_, name, NULL_)
#define CDFgetzVarName(id, num, name) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_NAME_, name, NULL_)
#define CDFgetzVarDataType(id, num, dataType) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_DATATYPE_, dataType, NULL_)
#define CDFgetzVarNumElements(id, num, numElems) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_NUMELEMS_, numElems, NULL_)
#define CDFgetzVarNumDims(id, num, numDims) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_NUMDIMS_, numDims, NULL_)
#define CDFgetzVarDimSizes(id, num, dimSizes) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_DIMSIZES_, dimSizes, NULL_)
#define CDFgetzVarRecVariance(id, num, recVary) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_RECVARY_, recVary, NULL_)
#define CDFgetzVarDimVariances(id, num, dimVarys) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_DIMVARYS_, dimVarys, NULL_)
#define CDFgetzVarMaxWrittenRecNum(id, num, maxRec) \
    CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, num, GET_, zVAR_MAXREC_, maxRec, NULL_)
#define CDFgetAttrMaxgEntry(id, attrNum, maxEntry) CDFgetAttrMaxEntry(id, 1, attrNum, maxEntry)
#define CDFgetAttrMaxrEntry(id, attrNum, maxEntry) CDFgetAttrMaxEntry(id, 2, attrNum, maxEntry)
#define CDFgetAttrMaxzEntry(id, attrNum, maxEntry) CDFgetAttrMaxEntry(id, 3, attrNum, maxEntry)
#define CDFgetNumAttrgEntries(id, attrNum, numEntries) \
    CDFgetNumAttrEntries(id, 1, attrNum, numEntries)
#define CDFgetNumAttrrEntries(id, attrNum, numEntries) \
    CDFgetNumAttrEntries(id, 2, attrNum, numEntries)
#define CDFgetNumAttrzEntries(id, attrNum, numEntries) \
    CDFgetNumAttrEntries(id, 3, attrNum, numEntries)
#define CDFinquireAttrgEntry(id, attrNum, entryNum, dataType, numElems) \
    CDFinquireAttrEntry(id, 1, attrNum, entryNum, dataType, numElems)
#define CDFinquireAttrrEntry(id, attrNum, entryNum, dataType, numElems) \
    CDFinquireAttrEntry(id, 2, attrNum, entryNum, dataType, numElems)
#define CDFinquireAttrzEntry(id, attrNum, entryNum, dataType, numElems) \
    CDFinquireAttrEntry(id, 3, attrNum, entryNum, dataType, numElems)
#define CDFgetAttrgEntry(id, attrNum, entryNum, value) \
    CDFgetAttrEntry(id, 1, attrNum, entryNum, value)
#define CDFgetAttrrEntry(id, attrNum, entryNum, value) \
    CDFgetAttrEntry(id, 2, attrNum, entryNum, value)
#define CDFgetAttrzEntry(id, attrNum, entryNum, value) \
    CDFgetAttrEntry(id, 3, attrNum, entryNum, value)
#define CDFputAttrgEntry(id, attrNum, entryNum, dataType, numElems, value) \
    CDFputAttrEntry(id, 1, attrNum, entryNum, dataType, numElems, value)
#define CDFputAttrrEntry(id, attrNum, entryNum, dataType, numElems, value) \
    CDFputAttrEntry(id, 2, attrNum, entryNum, dataType, numElems, value)
#define CDFputAttrzEntry(id, attrNum, entryNum, dataType, numElems, value) \
    CDFputAttrEntry(id, 3, attrNum, entryNum, dataType, numElems, value)
#define CDFdeleteAttrgEntry(id, attrNum, entryNum) CDFdeleteAttrEntry(id, 1, attrNum, entryNum)
#define CDFdeleteAttrrEntry(id, attrNum, entryNum) CDFdeleteAttrEntry(id, 2, attrNum, entryNum)
#define CDFdeleteAttrzEntry(id, attrNum, entryNum) CDFdeleteAttrEntry(id, 3, attrNum, entryNum)
#define CDFgetzVarRecordData(id, varNum, recNum, buffer) \
    CDFgetVarRecordData(id, 1, varNum, recNum, buffer)
#define CDFputzVarRecordData(id, varNum, recNum, buffer) \
    CDFputVarRecordData(id, 1, varNum, recNum, buffer)
#define CDFgetzVarNum(id, varName) CDFgetVarNum(id, varName)

#ifdef __cplusplus
}
#endif

#endif /* CDFGATE_CDF_H */
