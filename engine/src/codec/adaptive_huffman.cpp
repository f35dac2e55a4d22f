#include "codec/adaptive_huffman.h"

#include <new>

#include "codec/adaptive_tree.h"
#include "codec/bit_reader.h"
#include "codec/bit_writer.h"
#include "codec/growing_output.h"

namespace cdfgate::engine::codec {

namespace {

// Sends the code of a leaf: the path from the root, gathered upwards. A slot's own bit is
// 0 for odd slots and 1 for even ones.
void put_code(const AdaptiveTree& tree, int slot, BitWriter& writer) {
    std::uint64_t code = 0;
    unsigned len = 0;
    while (slot != 0 && len < 64) {
        code |= std::uint64_t{(slot & 1) == 0} << len;
        ++len;
        slot = tree.parent(slot);
    }
    if (slot == 0) {
        writer.put_long(code, len);
        return;
    }
    // Deeper than 64 levels: gather the upper part first (not seen in practice).
    std::uint8_t bits[AdaptiveTree::kSlots];
    unsigned depth = 0;
    while (slot != 0) {
        bits[depth++] = (slot & 1) == 0;
        slot = tree.parent(slot);
    }
    while (depth > 0) writer.put(bits[--depth], 1);
    writer.put_long(code, len);
}

class Decoder {
  public:
    explicit Decoder(ByteView in) : reader_(in) {}

    // Decodes into dst[0, room) until the end-of-stream symbol (ended = true) or until the
    // next symbol is a byte that does not fit; that symbol is left unread.
    Result run(std::uint8_t* dst, std::size_t room, std::size_t& produced, bool& ended) {
        std::size_t n = 0;
        for (;;) {
            const std::size_t start = reader_.position();
            int sym = next_leaf_symbol();
            const bool escaped = sym == AdaptiveTree::kEscape;
            if (escaped) sym = read_byte();
            if (reader_.overrun()) return Result::Truncated;
            if (sym == AdaptiveTree::kEos) {
                ended = true;
                break;
            }
            if (n == room) {
                reader_.seek(start);
                break;
            }
            if (escaped) {
                if (tree_.leaf(sym) != -1) return Result::Corrupt;  // escape of a known byte
                tree_.add(sym);
            }
            dst[n++] = static_cast<std::uint8_t>(sym);
            tree_.update(sym);
        }
        produced = n;
        return Result::Ok;
    }

  private:
    int next_leaf_symbol() {
        std::uint64_t window = reader_.peek();
        unsigned used = 0;
        int slot = 0;
        while (!tree_.is_leaf(slot)) {
            if (used == 57) {
                reader_.skip(used);
                window = reader_.peek();
                used = 0;
            }
            slot = tree_.child(slot) + static_cast<int>((window >> (63 - used)) & 1u);
            ++used;
        }
        reader_.skip(used);
        return tree_.child(slot);
    }

    int read_byte() {
        const int c = static_cast<int>(reader_.peek() >> 56);
        reader_.skip(8);
        return c;
    }

    AdaptiveTree tree_;
    BitReader reader_;
};

}  // namespace

Result ahuff_encode(ByteView in, std::vector<std::uint8_t>& out) noexcept {
    const std::size_t start = out.size();
    try {
        AdaptiveTree tree;
        BitWriter writer(out, in.size() / 2 + 16);
        for (const std::uint8_t c : in) {
            const int slot = tree.leaf(c);
            if (slot != -1) {
                put_code(tree, slot, writer);
            } else {
                put_code(tree, tree.leaf(AdaptiveTree::kEscape), writer);
                writer.put(c, 8);
                tree.add(c);
            }
            tree.update(c);
        }
        put_code(tree, tree.leaf(AdaptiveTree::kEos), writer);
        writer.finish();
        return Result::Ok;
    } catch (const std::bad_alloc&) {
        out.resize(start);
        return Result::OutOfMemory;
    }
}

Result ahuff_decode(ByteView in, MutableBytes out) noexcept {
    Decoder dec(in);
    std::size_t produced = 0;
    bool ended = false;
    if (const Result r = dec.run(out.data(), out.size(), produced, ended); r != Result::Ok) {
        return r;
    }
    return produced == out.size() ? Result::Ok : Result::ShortOutput;
}

Result ahuff_decode(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept {
    Decoder dec(in);
    return decode_growing(out, max_size, in.size() * 3,
                          [&dec](std::uint8_t* dst, std::size_t room, std::size_t& produced,
                                 bool& ended) { return dec.run(dst, room, produced, ended); });
}

}  // namespace cdfgate::engine::codec
