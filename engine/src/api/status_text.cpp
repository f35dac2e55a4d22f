#include "api/status_text.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "cdf.h"

namespace cdfgate::engine::api {
namespace {

struct StatusInfo {
    long code;
    const char* name;
    const char* explanation;
};

constexpr std::array kStatuses{
    StatusInfo{VIRTUAL_RECORD_DATA, "VIRTUAL_RECORD_DATA",
               "One or more values came from records that do not exist (pad values given)."},
    StatusInfo{DID_NOT_COMPRESS, "DID_NOT_COMPRESS",
               "The data were stored uncompressed because compression did not make them smaller."},
    StatusInfo{VAR_ALREADY_CLOSED, "VAR_ALREADY_CLOSED", "The variable's file was not open."},
    StatusInfo{SINGLE_FILE_FORMAT, "SINGLE_FILE_FORMAT",
               "The operation applies only to multi-file CDFs and was ignored."},
    StatusInfo{NO_PADVALUE_SPECIFIED, "NO_PADVALUE_SPECIFIED",
               "The variable stores no pad value; the default of its data type was used."},
    StatusInfo{NO_VARS_IN_CDF, "NO_VARS_IN_CDF", "The CDF holds no variables."},
    StatusInfo{MULTI_FILE_FORMAT, "MULTI_FILE_FORMAT",
               "The operation applies only to single-file CDFs and was ignored."},
    StatusInfo{SOME_ALREADY_ALLOCATED, "SOME_ALREADY_ALLOCATED",
               "Part of the requested record range had already been allocated."},
    StatusInfo{PRECEEDING_RECORDS_ALLOCATED, "PRECEEDING_RECORDS_ALLOCATED",
               "Unallocated records before the requested range were allocated as well."},
    StatusInfo{TT2000_CDF_MAYNEEDUPDATE, "TT2000_CDF_MAYNEEDUPDATE",
               "The CDF was written with an older leap-second table and may need an update."},
    StatusInfo{BLOCKINGFACTOR_TOO_SMALL, "BLOCKINGFACTOR_TOO_SMALL",
               "The blocking factor is small; it was accepted."},
    StatusInfo{BLOCKINGFACTOR_TOO_SMALL2, "BLOCKINGFACTOR_TOO_SMALL2",
               "The blocking factor is small for a compressed variable; it was accepted."},
    StatusInfo{CDF_OK, "CDF_OK", "The operation completed successfully."},
    StatusInfo{ATTR_NAME_TRUNC, "ATTR_NAME_TRUNC",
               "The attribute name was cut to the maximum length of 256 characters."},
    StatusInfo{CDF_NAME_TRUNC, "CDF_NAME_TRUNC",
               "The CDF file name was cut to the maximum length."},
    StatusInfo{VAR_NAME_TRUNC, "VAR_NAME_TRUNC",
               "The variable name was cut to the maximum length of 256 characters."},
    StatusInfo{NEGATIVE_FP_ZERO, "NEGATIVE_FP_ZERO",
               "A negative floating-point zero was met and handled."},
    StatusInfo{FORCED_PARAMETER, "FORCED_PARAMETER",
               "The parameter was replaced by the only value allowed here."},
    StatusInfo{NA_FOR_VARIABLE, "NA_FOR_VARIABLE", "The item does not apply to this variable."},
    StatusInfo{ATTR_EXISTS, "ATTR_EXISTS", "An attribute of that name already exists."},
    StatusInfo{BAD_CDF_ID, "BAD_CDF_ID", "The identifier does not belong to an open CDF."},
    StatusInfo{BAD_DATA_TYPE, "BAD_DATA_TYPE",
               "The data type is unknown or not allowed in this CDF's version."},
    StatusInfo{BAD_DIM_SIZE, "BAD_DIM_SIZE", "A dimension size is below 1."},
    StatusInfo{BAD_DIM_INDEX, "BAD_DIM_INDEX",
               "A dimension index, or the end of a hyperslab, lies outside its dimension."},
    StatusInfo{BAD_ENCODING, "BAD_ENCODING", "The data encoding is unknown."},
    StatusInfo{BAD_MAJORITY, "BAD_MAJORITY", "The variable majority is unknown."},
    StatusInfo{BAD_NUM_DIMS, "BAD_NUM_DIMS", "The number of dimensions is outside 0 to 10."},
    StatusInfo{BAD_REC_NUM, "BAD_REC_NUM", "A record number is negative or the range is reversed."},
    StatusInfo{BAD_SCOPE, "BAD_SCOPE", "The attribute scope is unknown."},
    StatusInfo{BAD_NUM_ELEMS, "BAD_NUM_ELEMS",
               "The number of elements is not allowed for this data type."},
    StatusInfo{CDF_OPEN_ERROR, "CDF_OPEN_ERROR", "The CDF file could not be opened."},
    StatusInfo{CDF_EXISTS, "CDF_EXISTS", "A file of that name already exists."},
    StatusInfo{BAD_FORMAT, "BAD_FORMAT", "The CDF format is unknown."},
    StatusInfo{BAD_ALLOCATE_RECS, "BAD_ALLOCATE_RECS", "The record range to allocate is invalid."},
    StatusInfo{BAD_CDF_EXTENSION, "BAD_CDF_EXTENSION", "The file extension is not allowed."},
    StatusInfo{NO_SUCH_ATTR, "NO_SUCH_ATTR", "The attribute does not exist."},
    StatusInfo{NO_SUCH_ENTRY, "NO_SUCH_ENTRY", "The attribute entry does not exist."},
    StatusInfo{NO_SUCH_VAR, "NO_SUCH_VAR", "The variable does not exist."},
    StatusInfo{VAR_READ_ERROR, "VAR_READ_ERROR", "Reading a variable's file failed."},
    StatusInfo{VAR_WRITE_ERROR, "VAR_WRITE_ERROR", "Writing a variable's file failed."},
    StatusInfo{BAD_ARGUMENT, "BAD_ARGUMENT", "An argument is invalid."},
    StatusInfo{IBM_PC_OVERFLOW, "IBM_PC_OVERFLOW", "A size exceeds what this platform can hold."},
    StatusInfo{TOO_MANY_VARS, "TOO_MANY_VARS", "The CDF cannot hold more variables."},
    StatusInfo{VAR_EXISTS, "VAR_EXISTS", "A variable of that name already exists."},
    StatusInfo{BAD_MALLOC, "BAD_MALLOC", "Memory could not be obtained."},
    StatusInfo{NOT_A_CDF, "NOT_A_CDF", "The file is not a CDF."},
    StatusInfo{CORRUPTED_V2_CDF, "CORRUPTED_V2_CDF",
               "The version 2 CDF is damaged: its internal records are inconsistent."},
    StatusInfo{VAR_OPEN_ERROR, "VAR_OPEN_ERROR", "A variable's file could not be opened."},
    StatusInfo{BAD_INITIAL_RECS, "BAD_INITIAL_RECS", "The number of initial records is invalid."},
    StatusInfo{BAD_BLOCKING_FACTOR, "BAD_BLOCKING_FACTOR", "The blocking factor is invalid."},
    StatusInfo{END_OF_VAR, "END_OF_VAR", "The end of the variable was reached."},
    StatusInfo{BAD_CDFSTATUS, "BAD_CDFSTATUS", "The status code is invalid."},
    StatusInfo{CDF_INTERNAL_ERROR, "CDF_INTERNAL_ERROR",
               "The library met an internal inconsistency."},
    StatusInfo{BAD_NUM_VARS, "BAD_NUM_VARS", "The number of variables is invalid."},
    StatusInfo{BAD_REC_COUNT, "BAD_REC_COUNT", "The record count is below 1."},
    StatusInfo{BAD_REC_INTERVAL, "BAD_REC_INTERVAL", "The record interval is below 1."},
    StatusInfo{BAD_DIM_COUNT, "BAD_DIM_COUNT", "A dimension count is below 1."},
    StatusInfo{BAD_DIM_INTERVAL, "BAD_DIM_INTERVAL", "A dimension interval is below 1."},
    StatusInfo{BAD_VAR_NUM, "BAD_VAR_NUM", "The variable number is negative."},
    StatusInfo{BAD_ATTR_NUM, "BAD_ATTR_NUM", "The attribute number is negative."},
    StatusInfo{BAD_ENTRY_NUM, "BAD_ENTRY_NUM", "The entry number is negative."},
    StatusInfo{BAD_ATTR_NAME, "BAD_ATTR_NAME",
               "The attribute name is empty or holds a character that is not printable ASCII."},
    StatusInfo{BAD_VAR_NAME, "BAD_VAR_NAME",
               "The variable name is empty or holds a character that is not printable ASCII."},
    StatusInfo{NO_ATTR_SELECTED, "NO_ATTR_SELECTED", "No attribute is selected."},
    StatusInfo{NO_ENTRY_SELECTED, "NO_ENTRY_SELECTED", "No entry number is selected."},
    StatusInfo{NO_VAR_SELECTED, "NO_VAR_SELECTED", "No variable is selected."},
    StatusInfo{BAD_CDF_NAME, "BAD_CDF_NAME", "The CDF file name is empty or too long."},
    StatusInfo{CANNOT_CHANGE, "CANNOT_CHANGE", "The setting can no longer be changed."},
    StatusInfo{NO_STATUS_SELECTED, "NO_STATUS_SELECTED", "No status code is selected."},
    StatusInfo{NO_CDF_SELECTED, "NO_CDF_SELECTED", "No CDF is selected."},
    StatusInfo{READ_ONLY_DISTRIBUTION, "READ_ONLY_DISTRIBUTION",
               "This build of the library cannot write CDFs."},
    StatusInfo{CDF_CLOSE_ERROR, "CDF_CLOSE_ERROR", "Closing the CDF failed."},
    StatusInfo{VAR_CLOSE_ERROR, "VAR_CLOSE_ERROR", "Closing a variable's file failed."},
    StatusInfo{BAD_FNC_OR_ITEM, "BAD_FNC_OR_ITEM",
               "The operation or item is unknown, or not available for that operation."},
    StatusInfo{ILLEGAL_ON_V1_CDF, "ILLEGAL_ON_V1_CDF",
               "The operation is not allowed on a version 1 CDF."},
    StatusInfo{BAD_CACHE_SIZE, "BAD_CACHE_SIZE", "The cache size is negative."},
    StatusInfo{CDF_CREATE_ERROR, "CDF_CREATE_ERROR", "The CDF file could not be created."},
    StatusInfo{NO_SUCH_CDF, "NO_SUCH_CDF", "The CDF file does not exist."},
    StatusInfo{VAR_CREATE_ERROR, "VAR_CREATE_ERROR", "A variable's file could not be created."},
    StatusInfo{READ_ONLY_MODE, "READ_ONLY_MODE",
               "The CDF is in read-only mode; nothing may change."},
    StatusInfo{ILLEGAL_IN_zMODE, "ILLEGAL_IN_zMODE",
               "rVariables and rEntries cannot be used while a zMode is on."},
    StatusInfo{BAD_zMODE, "BAD_zMODE", "The zMode is unknown."},
    StatusInfo{BAD_READONLY_MODE, "BAD_READONLY_MODE", "The read-only mode is unknown."},
    StatusInfo{CDF_READ_ERROR, "CDF_READ_ERROR",
               "Reading the CDF file failed or the file is too short."},
    StatusInfo{CDF_WRITE_ERROR, "CDF_WRITE_ERROR", "Writing the CDF file failed."},
    StatusInfo{ILLEGAL_FOR_SCOPE, "ILLEGAL_FOR_SCOPE",
               "The kind of entry does not fit the attribute's scope."},
    StatusInfo{NO_MORE_ACCESS, "NO_MORE_ACCESS",
               "The CDF cannot be used after an earlier failure."},
    StatusInfo{BAD_DECODING, "BAD_DECODING", "The decoding is unknown."},
    StatusInfo{BAD_NEGtoPOSfp0_MODE, "BAD_NEGtoPOSfp0_MODE",
               "The negative-to-positive zero mode is unknown."},
    StatusInfo{UNSUPPORTED_OPERATION, "UNSUPPORTED_OPERATION",
               "The operation is not supported for this CDF."},
    StatusInfo{CDF_SAVE_ERROR, "CDF_SAVE_ERROR", "Saving the CDF failed."},
    StatusInfo{VAR_SAVE_ERROR, "VAR_SAVE_ERROR", "Saving a variable failed."},
    StatusInfo{NO_WRITE_ACCESS, "NO_WRITE_ACCESS", "There is no permission to write the file."},
    StatusInfo{NO_DELETE_ACCESS, "NO_DELETE_ACCESS", "There is no permission to delete the file."},
    StatusInfo{CDF_DELETE_ERROR, "CDF_DELETE_ERROR", "Deleting the CDF file failed."},
    StatusInfo{VAR_DELETE_ERROR, "VAR_DELETE_ERROR", "Deleting a variable's file failed."},
    StatusInfo{UNKNOWN_COMPRESSION, "UNKNOWN_COMPRESSION", "The compression type is unknown."},
    StatusInfo{CANNOT_COMPRESS, "CANNOT_COMPRESS",
               "The compression cannot change once records exist."},
    StatusInfo{DECOMPRESSION_ERROR, "DECOMPRESSION_ERROR",
               "Compressed data could not be expanded."},
    StatusInfo{COMPRESSION_ERROR, "COMPRESSION_ERROR", "Data could not be compressed."},
    StatusInfo{EMPTY_COMPRESSED_CDF, "EMPTY_COMPRESSED_CDF", "The compressed CDF holds no data."},
    StatusInfo{BAD_COMPRESSION_PARM, "BAD_COMPRESSION_PARM",
               "A compression parameter or the reserve percentage is out of range."},
    StatusInfo{UNKNOWN_SPARSENESS, "UNKNOWN_SPARSENESS", "The sparse-records type is unknown."},
    StatusInfo{CANNOT_SPARSERECORDS, "CANNOT_SPARSERECORDS",
               "The sparse-records type cannot change once records exist."},
    StatusInfo{CANNOT_SPARSEARRAYS, "CANNOT_SPARSEARRAYS", "Sparse arrays are not supported."},
    StatusInfo{TOO_MANY_PARMS, "TOO_MANY_PARMS", "Too many parameters were given."},
    StatusInfo{NO_SUCH_RECORD, "NO_SUCH_RECORD",
               "The record does not exist or the record number is negative."},
    StatusInfo{CANNOT_ALLOCATE_RECORDS, "CANNOT_ALLOCATE_RECORDS",
               "Records cannot be allocated for this variable."},
    StatusInfo{SCRATCH_DELETE_ERROR, "SCRATCH_DELETE_ERROR", "Deleting a scratch file failed."},
    StatusInfo{SCRATCH_CREATE_ERROR, "SCRATCH_CREATE_ERROR", "Creating a scratch file failed."},
    StatusInfo{SCRATCH_READ_ERROR, "SCRATCH_READ_ERROR", "Reading a scratch file failed."},
    StatusInfo{SCRATCH_WRITE_ERROR, "SCRATCH_WRITE_ERROR", "Writing a scratch file failed."},
    StatusInfo{BAD_SPARSEARRAYS_PARM, "BAD_SPARSEARRAYS_PARM",
               "A sparse-arrays parameter is invalid."},
    StatusInfo{BAD_SCRATCH_DIR, "BAD_SCRATCH_DIR", "The scratch directory is unusable."},
    StatusInfo{NOT_A_CDF_OR_NOT_SUPPORTED, "NOT_A_CDF_OR_NOT_SUPPORTED",
               "The file is not a CDF, or its version is not supported."},
    StatusInfo{CORRUPTED_V3_CDF, "CORRUPTED_V3_CDF",
               "The version 3 CDF is damaged: its internal records are inconsistent."},
    StatusInfo{ILLEGAL_EPOCH_FIELD, "ILLEGAL_EPOCH_FIELD", "A time component is out of range."},
    StatusInfo{BAD_CHECKSUM, "BAD_CHECKSUM", "The checksum mode is unknown."},
    StatusInfo{CHECKSUM_ERROR, "CHECKSUM_ERROR",
               "The file's checksum does not match its contents."},
    StatusInfo{CHECKSUM_NOT_ALLOWED, "CHECKSUM_NOT_ALLOWED", "A checksum is not allowed here."},
    StatusInfo{IS_A_NETCDF, "IS_A_NETCDF", "The file is a netCDF file, not a CDF."},
    StatusInfo{TT2000_TIME_ERROR, "TT2000_TIME_ERROR", "A TT2000 time is out of range."},
    StatusInfo{UNABLE_TO_PROCESS_CDF, "UNABLE_TO_PROCESS_CDF", "The CDF could not be processed."},
    StatusInfo{ZLIB_COMPRESS_ERROR, "ZLIB_COMPRESS_ERROR", "GZIP compression failed."},
    StatusInfo{ZLIB_UNCOMPRESS_ERROR, "ZLIB_UNCOMPRESS_ERROR", "GZIP expansion failed."},
    StatusInfo{CANNOT_INSERT_RECORDS, "CANNOT_INSERT_RECORDS",
               "Records cannot be inserted into this variable."},
    StatusInfo{TT2000_USED_OUTDATED_TABLE, "TT2000_USED_OUTDATED_TABLE",
               "The TT2000 value was made with an outdated leap-second table."},
    StatusInfo{BADDATE_LEAPSECOND_UPDATED, "BADDATE_LEAPSECOND_UPDATED",
               "The leap-second update date is invalid."},
    StatusInfo{FUNCTION_NOT_SUPPORTED, "FUNCTION_NOT_SUPPORTED", "The function is not supported."},
};

const StatusInfo* find(long status) {
    const auto it = std::find_if(kStatuses.begin(), kStatuses.end(),
                                 [status](const StatusInfo& s) { return s.code == status; });
    return it == kStatuses.end() ? nullptr : &*it;
}

}  // namespace

const char* status_name(long status) {
    const StatusInfo* info = find(status);
    return info ? info->name : nullptr;
}

std::string status_text(long status) {
    std::string text;
    if (const StatusInfo* info = find(status)) {
        text = std::string(info->name) + ": " + info->explanation;
    } else {
        text = "UNKNOWN_STATUS: this code is not a status the library knows (" +
               std::to_string(status) + ").";
    }
    if (text.size() > CDF_STATUSTEXT_LEN) text.resize(CDF_STATUSTEXT_LEN);
    return text;
}

void copy_status_text(long status, char* out) {
    const std::string text = status_text(status);
    std::memcpy(out, text.c_str(), text.size() + 1);
}

}  // namespace cdfgate::engine::api
