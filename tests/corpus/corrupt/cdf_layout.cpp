#include "cdf_layout.h"

namespace cdfgate::corrupt {

Layout::Layout(const Bytes& bytes) : bytes_(bytes) {
    v3_ = field(0, 4) == 0xCDF30001;
    // A whole-file compressed CDF holds only CDR, CCR and CPR: no GDR to read.
    if (field(4, 4) != 0xCCCC0001) {
        gdr_ = field(at(8, 12, 8), width());
        eof_ = field(at(gdr_, 36, 20), width());
    }
    if (eof_ == 0 || eof_ > bytes_.size()) eof_ = bytes_.size();
    // Bounded walk: a record size of zero or past the end stops it.
    for (std::size_t r = 8; r < eof_ && records_.size() < 100000;) {
        records_.push_back(r);
        const std::uint64_t size = field(r, width());
        if (size == 0 || size > eof_ - r) break;
        r += size;
    }
}

std::uint64_t Layout::field(std::size_t at, std::size_t size) const {
    std::uint64_t v = 0;
    for (std::size_t i = 0; i < size; ++i) {
        v = (v << 8) | (at + i < bytes_.size() ? bytes_[at + i] : 0);
    }
    return v;
}

std::int32_t Layout::type_of(std::size_t record) const {
    return static_cast<std::int32_t>(field(record + width(), 4));
}

std::vector<std::size_t> Layout::of_type(std::int32_t type) const {
    std::vector<std::size_t> out;
    for (const std::size_t r : records_) {
        if (type_of(r) == type) out.push_back(r);
    }
    return out;
}

void put(Bytes& bytes, std::size_t at, std::size_t size, std::uint64_t value) {
    for (std::size_t i = 0; i < size; ++i) {
        if (at + i < bytes.size()) {
            bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * (size - 1 - i)));
        }
    }
}

}  // namespace cdfgate::corrupt
