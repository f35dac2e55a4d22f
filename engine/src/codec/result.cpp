#include "codec/result.h"

namespace cdfgate::engine::codec {

std::string_view result_name(Result r) noexcept {
    switch (r) {
        case Result::Ok:
            return "Ok";
        case Result::Corrupt:
            return "Corrupt";
        case Result::Truncated:
            return "Truncated";
        case Result::ShortOutput:
            return "ShortOutput";
        case Result::TooLarge:
            return "TooLarge";
        case Result::BadParameter:
            return "BadParameter";
        case Result::OutOfMemory:
            return "OutOfMemory";
        case Result::Failed:
            return "Failed";
    }
    return "Unknown";
}

}  // namespace cdfgate::engine::codec
