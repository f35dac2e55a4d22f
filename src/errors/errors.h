// The error classes: one per message identifier, named after it. Raise one with
// hvErrMsgId(QUORIN::imagesci::cdflib::invalidFileId());
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "hv/except.h"

namespace cdfgate::errors {

inline constexpr std::string_view kCdflibComponent = "QUORIN:imagesci:cdflib";
inline constexpr std::string_view kValidateComponent = "QUORIN:imagesci:validate";

template <typename Derived>
using ErrorBase = foundation::core::except::Exception<Derived, std::exception>;

}  // namespace cdfgate::errors

namespace QUORIN::imagesci::validate {

class argumentNotDoublePrecision : public cdfgate::errors::ErrorBase<argumentNotDoublePrecision> {
  public:
    explicit argumentNotDoublePrecision(const std::string& argumentName)
        : Exception({cdfgate::errors::kValidateComponent, "argumentNotDoublePrecision", 1},
                    {argumentName}) {}
};

class argumentNotDoubleScalar : public cdfgate::errors::ErrorBase<argumentNotDoubleScalar> {
  public:
    explicit argumentNotDoubleScalar(const std::string& argumentName)
        : Exception({cdfgate::errors::kValidateComponent, "argumentNotDoubleScalar", 1},
                    {argumentName}) {}
};

class argumentNotInt64Scalar : public cdfgate::errors::ErrorBase<argumentNotInt64Scalar> {
  public:
    explicit argumentNotInt64Scalar(const std::string& argumentName)
        : Exception({cdfgate::errors::kValidateComponent, "argumentNotInt64Scalar", 1},
                    {argumentName}) {}
};

class argumentNotUint64Scalar : public cdfgate::errors::ErrorBase<argumentNotUint64Scalar> {
  public:
    explicit argumentNotUint64Scalar(const std::string& argumentName)
        : Exception({cdfgate::errors::kValidateComponent, "argumentNotUint64Scalar", 1},
                    {argumentName}) {}
};

class argumentOutOfBounds : public cdfgate::errors::ErrorBase<argumentOutOfBounds> {
  public:
    argumentOutOfBounds()
        : Exception({cdfgate::errors::kValidateComponent, "argumentOutOfBounds", 0}, {}) {}
};

class wrongNumberOfInputs : public cdfgate::errors::ErrorBase<wrongNumberOfInputs> {
  public:
    wrongNumberOfInputs()
        : Exception({cdfgate::errors::kValidateComponent, "wrongNumberOfInputs", 0}, {}) {}
};

}  // namespace QUORIN::imagesci::validate

namespace QUORIN::imagesci::cdflib {

class badDimSpec : public cdfgate::errors::ErrorBase<badDimSpec> {
  public:
    badDimSpec(long number, const std::string& varName)
        : Exception({cdfgate::errors::kCdflibComponent, "badDimSpec", 2},
                    {std::int64_t{number}, varName}) {}
};

class badDimensionExtent : public cdfgate::errors::ErrorBase<badDimensionExtent> {
  public:
    badDimensionExtent(const std::string& varName, long number)
        : Exception({cdfgate::errors::kCdflibComponent, "badDimensionExtent", 2},
                    {varName, std::int64_t{number}}) {}
};

class badEpoch16Modulus : public cdfgate::errors::ErrorBase<badEpoch16Modulus> {
  public:
    badEpoch16Modulus()
        : Exception({cdfgate::errors::kCdflibComponent, "badEpoch16Modulus", 0}, {}) {}
};

class badPutAttrEntryDatatype : public cdfgate::errors::ErrorBase<badPutAttrEntryDatatype> {
  public:
    badPutAttrEntryDatatype(const std::string& given, const std::string& expected)
        : Exception({cdfgate::errors::kCdflibComponent, "badPutAttrEntryDatatype", 2},
                    {given, expected}) {}
};

class badTimeVector : public cdfgate::errors::ErrorBase<badTimeVector> {
  public:
    explicit badTimeVector(long number)
        : Exception({cdfgate::errors::kCdflibComponent, "badTimeVector", 1},
                    {std::int64_t{number}}) {}
};

class badVarianceDatatype : public cdfgate::errors::ErrorBase<badVarianceDatatype> {
  public:
    badVarianceDatatype()
        : Exception({cdfgate::errors::kCdflibComponent, "badVarianceDatatype", 0}, {}) {}
};

class cannotOmitDimSpec : public cdfgate::errors::ErrorBase<cannotOmitDimSpec> {
  public:
    cannotOmitDimSpec()
        : Exception({cdfgate::errors::kCdflibComponent, "cannotOmitDimSpec", 0}, {}) {}
};

class closingFileHandle : public cdfgate::errors::ErrorBase<closingFileHandle> {
  public:
    closingFileHandle()
        : Exception({cdfgate::errors::kCdflibComponent, "closingFileHandle", 0}, {}) {}
};

class datatypeMismatch : public cdfgate::errors::ErrorBase<datatypeMismatch> {
  public:
    datatypeMismatch(const std::string& given, const std::string& expected)
        : Exception({cdfgate::errors::kCdflibComponent, "datatypeMismatch", 2}, {given, expected}) {
    }
};

class fileCreateError : public cdfgate::errors::ErrorBase<fileCreateError> {
  public:
    fileCreateError() : Exception({cdfgate::errors::kCdflibComponent, "fileCreateError", 0}, {}) {}
};

class fileOpenError : public cdfgate::errors::ErrorBase<fileOpenError> {
  public:
    fileOpenError() : Exception({cdfgate::errors::kCdflibComponent, "fileOpenError", 0}, {}) {}
};

class illegalEpochValue : public cdfgate::errors::ErrorBase<illegalEpochValue> {
  public:
    illegalEpochValue()
        : Exception({cdfgate::errors::kCdflibComponent, "illegalEpochValue", 0}, {}) {}
};

class illegalTT2000Value : public cdfgate::errors::ErrorBase<illegalTT2000Value> {
  public:
    illegalTT2000Value()
        : Exception({cdfgate::errors::kCdflibComponent, "illegalTT2000Value", 0}, {}) {}
};

class invalidCharError : public cdfgate::errors::ErrorBase<invalidCharError> {
  public:
    invalidCharError()
        : Exception({cdfgate::errors::kCdflibComponent, "invalidCharError", 0}, {}) {}
};

class invalidCompressionParameter : public cdfgate::errors::ErrorBase<invalidCompressionParameter> {
  public:
    invalidCompressionParameter(long parameter, const std::string& compression)
        : Exception({cdfgate::errors::kCdflibComponent, "invalidCompressionParameter", 2},
                    {std::int64_t{parameter}, compression}) {}
};

class invalidFileId : public cdfgate::errors::ErrorBase<invalidFileId> {
  public:
    invalidFileId() : Exception({cdfgate::errors::kCdflibComponent, "invalidFileId", 0}, {}) {}
};

class invalidOperation : public cdfgate::errors::ErrorBase<invalidOperation> {
  public:
    explicit invalidOperation(const std::string& command)
        : Exception({cdfgate::errors::kCdflibComponent, "invalidOperation", 1}, {command}) {}
};

class libraryFailure : public cdfgate::errors::ErrorBase<libraryFailure> {
  public:
    libraryFailure(const std::string& functionName, const std::string& statusText)
        : Exception({cdfgate::errors::kCdflibComponent, "libraryFailure", 2},
                    {functionName, statusText}) {}
};

class mismatchedVarianceSize : public cdfgate::errors::ErrorBase<mismatchedVarianceSize> {
  public:
    mismatchedVarianceSize(long varianceCount, long dimensionCount)
        : Exception({cdfgate::errors::kCdflibComponent, "mismatchedVarianceSize", 2},
                    {std::int64_t{varianceCount}, std::int64_t{dimensionCount}}) {}
};

class outOfRangeTT2000Value : public cdfgate::errors::ErrorBase<outOfRangeTT2000Value> {
  public:
    outOfRangeTT2000Value()
        : Exception({cdfgate::errors::kCdflibComponent, "outOfRangeTT2000Value", 0}, {}) {}
};

class unrecognizedConstantName : public cdfgate::errors::ErrorBase<unrecognizedConstantName> {
  public:
    explicit unrecognizedConstantName(const std::string& name)
        : Exception({cdfgate::errors::kCdflibComponent, "unrecognizedConstantName", 1}, {name}) {}
};

class unrecognizedValue : public cdfgate::errors::ErrorBase<unrecognizedValue> {
  public:
    unrecognizedValue(long value, const std::string& description)
        : Exception({cdfgate::errors::kCdflibComponent, "unrecognizedValue", 2},
                    {std::int64_t{value}, description}) {}
};

class unspecifiedGzipCompressionLevel
    : public cdfgate::errors::ErrorBase<unspecifiedGzipCompressionLevel> {
  public:
    unspecifiedGzipCompressionLevel()
        : Exception({cdfgate::errors::kCdflibComponent, "unspecifiedGzipCompressionLevel", 0}, {}) {
    }
};

class varCacheSizeOpInappropriate : public cdfgate::errors::ErrorBase<varCacheSizeOpInappropriate> {
  public:
    varCacheSizeOpInappropriate()
        : Exception({cdfgate::errors::kCdflibComponent, "varCacheSizeOpInappropriate", 0}, {}) {}
};

class wrongNumberOfHyperPutVarDataElements
    : public cdfgate::errors::ErrorBase<wrongNumberOfHyperPutVarDataElements> {
  public:
    wrongNumberOfHyperPutVarDataElements(const std::string& dimCounts, long recCount,
                                         const std::string& varName, long expected)
        : Exception({cdfgate::errors::kCdflibComponent, "wrongNumberOfHyperPutVarDataElements", 4},
                    {dimCounts, std::int64_t{recCount}, varName, std::int64_t{expected}}) {}
};

class wrongNumberOfPadValueElements
    : public cdfgate::errors::ErrorBase<wrongNumberOfPadValueElements> {
  public:
    wrongNumberOfPadValueElements(const std::string& varName, long number)
        : Exception({cdfgate::errors::kCdflibComponent, "wrongNumberOfPadValueElements", 2},
                    {varName, std::int64_t{number}}) {}
};

class wrongNumberOfPutVarDataElements
    : public cdfgate::errors::ErrorBase<wrongNumberOfPutVarDataElements> {
  public:
    wrongNumberOfPutVarDataElements(const std::string& varName, long number)
        : Exception({cdfgate::errors::kCdflibComponent, "wrongNumberOfPutVarDataElements", 2},
                    {varName, std::int64_t{number}}) {}
};

class wrongNumberOfPutVarRecordDataElements
    : public cdfgate::errors::ErrorBase<wrongNumberOfPutVarRecordDataElements> {
  public:
    wrongNumberOfPutVarRecordDataElements(const std::string& varName, long number)
        : Exception({cdfgate::errors::kCdflibComponent, "wrongNumberOfPutVarRecordDataElements", 2},
                    {varName, std::int64_t{number}}) {}
};

}  // namespace QUORIN::imagesci::cdflib
