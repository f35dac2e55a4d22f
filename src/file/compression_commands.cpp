// Compression of a whole CDF and of one zVariable. Types come in as numbers and go out
// as names; parameters go out as names where the type has a fixed one.
#include <array>
#include <string>

#include "errors/check_status.h"
#include "errors/errors.h"
#include "file/file_commands.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"
#include "hv/except.h"

namespace cdfgate::gateway {
namespace {

using Parameters = std::array<long, CDF_MAX_PARMS>;

struct Reported {
    long type = 0;
    Parameters parameters{};
    long percent = 0;
};

// Raises "unrecognizedValue" unless the type is 0, 1, 2, 3 or 5.
void checkCompressionType(long type) {
    switch (type) {
        case NO_COMPRESSION:
        case RLE_COMPRESSION:
        case HUFF_COMPRESSION:
        case AHUFF_COMPRESSION:
        case GZIP_COMPRESSION:
            return;
        default:
            hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(type, "COMPRESSION"));
    }
}

const char* typeName(long type) {
    switch (type) {
        case RLE_COMPRESSION:
            return "RLE_COMPRESSION";
        case HUFF_COMPRESSION:
            return "HUFF_COMPRESSION";
        case AHUFF_COMPRESSION:
            return "AHUFF_COMPRESSION";
        case GZIP_COMPRESSION:
            return "GZIP_COMPRESSION";
        default:
            return "NO_COMPRESSION";
    }
}

// The word naming a type in "invalidCompressionParameter".
const char* typeWord(long type) {
    switch (type) {
        case RLE_COMPRESSION:
            return "RLE";
        case HUFF_COMPRESSION:
            return "HUFF";
        case AHUFF_COMPRESSION:
            return "AHUFF";
        default:
            return "GZIP";
    }
}

matrix::array_ptr emptyDouble() {
    constexpr std::array<std::size_t, 2> kEmpty{0, 0};
    return matrix::detail::do_create_numeric(kEmpty, hvDOUBLE_CLASS, hvREAL);
}

// Second output of the getters for the types without a fixed parameter name.
matrix::array_ptr unnamedParameter(const Reported& reported) {
    if (reported.type == GZIP_COMPRESSION) {
        return createDoubleScalar(static_cast<double>(reported.parameters[0]));
    }
    return emptyDouble();
}

void placeReport(int nlhs, OutputSlot* plhs, const Reported& reported,
                 matrix::array_ptr parameter) {
    placeOutput(nlhs, plhs, 0, createString(typeName(reported.type)));
    placeOutput(nlhs, plhs, 1, std::move(parameter));
    placeOutput(nlhs, plhs, 2, createDoubleScalar(static_cast<double>(reported.percent)));
}

}  // namespace

void getCompression(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs,
                    const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    Reported reported;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, GET_, CDF_COMPRESSION_, &reported.type,
                               reported.parameters.data(), &reported.percent, NULL_),
                        "CDFgetCompression");
    checkCompressionType(reported.type);
    // The fixed names stand whatever parameter the file reports.
    matrix::array_ptr parameter;
    if (reported.type == RLE_COMPRESSION) {
        parameter = createString("RLE_OF_ZEROS");
    } else if (reported.type == HUFF_COMPRESSION || reported.type == AHUFF_COMPRESSION) {
        parameter = createString("OPTIMAL_ENCODING_TREES");
    } else {
        parameter = unnamedParameter(reported);
    }
    placeReport(nlhs, plhs, reported, std::move(parameter));
}

void setCompression(int, OutputSlot*, int nrhs, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long type = getInt64Scalar(prhs[1], "TYPE");
    checkCompressionType(type);
    Parameters parameters{};
    if (nrhs >= 3) {
        const long parameter = getInt64Scalar(prhs[2], "CPARM");
        // Levels 1 to 9 only; unsigned arithmetic so that any level below 1 wraps high.
        if (type == GZIP_COMPRESSION && static_cast<unsigned long>(parameter) - 1UL >= 9UL) {
            hvErrMsgId(QUORIN::imagesci::cdflib::invalidCompressionParameter(parameter, "GZIP"));
        }
        parameters[0] = parameter;
    } else if (type == GZIP_COMPRESSION) {
        hvErrMsgId(QUORIN::imagesci::cdflib::unspecifiedGzipCompressionLevel());
    }
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, PUT_, CDF_COMPRESSION_, type, parameters.data(), NULL_),
        "CDFsetCompression");
}

void getVarCompression(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs,
                       const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    Reported reported;
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, GET_, zVAR_COMPRESSION_, &reported.type,
               reported.parameters.data(), &reported.percent, NULL_),
        "CDFgetzVarCompression");
    checkCompressionType(reported.type);
    matrix::array_ptr parameter;
    const bool namedType = reported.type == RLE_COMPRESSION || reported.type == HUFF_COMPRESSION ||
                           reported.type == AHUFF_COMPRESSION;
    if (namedType && reported.parameters[0] == 0) {
        parameter = createString(reported.type == RLE_COMPRESSION ? "RLE_OF_ZEROs"
                                                                  : "OPTIMAL_ENCODING_TREES");
    } else if (namedType) {
        // An unexpected parameter is shown as a number, with a warning.
        const QUORIN::imagesci::cdflib::invalidCompressionParameter warning(
            reported.parameters[0], typeWord(reported.type));
        hvWarningMsgId(warning.messageId(), warning.arguments());
        parameter = createDoubleScalar(static_cast<double>(reported.parameters[0]));
    } else {
        parameter = unnamedParameter(reported);
    }
    placeReport(nlhs, plhs, reported, std::move(parameter));
}

void setVarCompression(int, OutputSlot*, int nrhs, const hvArray* const* prhs,
                       const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long type = getInt64Scalar(prhs[2], "CTYPE");
    checkCompressionType(type);
    Parameters parameters{};
    if (nrhs >= 4) {
        // No range check here: the CDF interface judges the level.
        parameters[0] = getInt64Scalar(prhs[3], "CPARM");
    } else if (type == GZIP_COMPRESSION) {
        hvErrMsgId(QUORIN::imagesci::cdflib::unspecifiedGzipCompressionLevel());
    }
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, zVAR_, varNum, PUT_, zVAR_COMPRESSION_, type,
                               parameters.data(), NULL_),
                        "CDFsetzVarCompression");
}

}  // namespace cdfgate::gateway
