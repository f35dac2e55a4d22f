// Just enough of the file layout to aim damage at real records: the record chain
// and the header fields of a v2 or v3 file, all big-endian.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace cdfgate::corrupt {

using Bytes = std::vector<std::uint8_t>;

class Layout {
  public:
    explicit Layout(const Bytes& bytes);

    // Width of an offset or record-size field: 8 in v3 files, 4 in v2.
    std::size_t width() const { return v3_ ? 8 : 4; }
    std::uint64_t field(std::size_t at, std::size_t size) const;

    // Records tiling the file from offset 8 up to the GDR's eof (or the file's end).
    const std::vector<std::size_t>& records() const { return records_; }
    std::size_t eof() const { return eof_; }
    std::int32_t type_of(std::size_t record) const;

    // Field offsets inside a record, by the field's v3 offset and its v2 offset.
    std::size_t at(std::size_t record, std::size_t v3_offset, std::size_t v2_offset) const {
        return record + (v3_ ? v3_offset : v2_offset);
    }

    // Every record of one type, in file order.
    std::vector<std::size_t> of_type(std::int32_t type) const;

  private:
    const Bytes& bytes_;
    bool v3_ = false;
    std::size_t gdr_ = 0;
    std::size_t eof_ = 0;
    std::vector<std::size_t> records_;
};

// Big-endian store of the low `size` bytes of value at `at` (ignored past the end).
void put(Bytes& bytes, std::size_t at, std::size_t size, std::uint64_t value);

}  // namespace cdfgate::corrupt
