#include "codec/huffman.h"

#include <algorithm>
#include <array>
#include <new>

#include "codec/bit_reader.h"
#include "codec/bit_writer.h"
#include "codec/growing_output.h"
#include "codec/huffman_tree.h"

namespace cdfgate::engine::codec {

namespace {

using Weights = std::array<std::uint32_t, HuffmanTree::kLeaves>;
constexpr int kEos = HuffmanTree::kEos;

// ---- weights and header ---------------------------------------------------------------

std::array<std::uint64_t, 256> count_bytes(ByteView in) {
    // Four interleaved tables keep consecutive equal bytes from serialising increments.
    std::array<std::array<std::uint64_t, 256>, 4> c{};
    const std::uint8_t* p = in.data();
    const std::size_t n = in.size();
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        ++c[0][p[i]];
        ++c[1][p[i + 1]];
        ++c[2][p[i + 2]];
        ++c[3][p[i + 3]];
    }
    for (; i < n; ++i) ++c[0][p[i]];
    for (int b = 0; b < 256; ++b) c[0][b] += c[1][b] + c[2][b] + c[3][b];
    return c[0];
}

// Scales the counts to one byte each: d = max / 255 + 1, weight = count / d, but never 0
// for a byte that occurs. An empty input counts byte 0 once.
Weights scale_weights(std::array<std::uint64_t, 256> counts) {
    if (std::all_of(counts.begin(), counts.end(), [](std::uint64_t c) { return c == 0; })) {
        counts[0] = 1;
    }
    const std::uint64_t max = *std::max_element(counts.begin(), counts.end());
    const std::uint64_t d = max / 255 + 1;
    Weights w{};
    for (int b = 0; b < 256; ++b) {
        const std::uint64_t s = counts[b] / d;
        w[b] = static_cast<std::uint32_t>(s == 0 && counts[b] != 0 ? 1 : s);
    }
    w[kEos] = 1;
    return w;
}

// Runs of weights: a run absorbs gaps of one or two zero weights and ends before a gap
// of three or more.
void write_header(const Weights& w, std::vector<std::uint8_t>& out) {
    int first = 0;
    while (first < 255 && w[first] == 0) ++first;
    while (first < 256) {
        int last = first + 1;
        int next = 256;
        for (;;) {
            while (last < 256 && w[last] != 0) ++last;
            --last;
            next = last + 1;
            while (next < 256 && w[next] == 0) ++next;
            if (next > 255 || next - last > 3) break;
            last = next;
        }
        out.push_back(static_cast<std::uint8_t>(first));
        out.push_back(static_cast<std::uint8_t>(last));
        for (int i = first; i <= last; ++i) out.push_back(static_cast<std::uint8_t>(w[i]));
        first = next;
    }
    out.push_back(0);
}

// Reads the header; `pos` is left on the first byte of the bit stream.
Result read_header(ByteView in, std::size_t& pos, Weights& w) {
    w.fill(0);
    pos = 0;
    if (in.size() < 2) return Result::Truncated;
    unsigned first = in[0];
    unsigned last = in[1];
    pos = 2;
    for (;;) {
        for (unsigned i = first; i <= last; ++i) {
            if (pos >= in.size()) return Result::Truncated;
            w[i] = in[pos++];
        }
        if (pos >= in.size()) return Result::Truncated;
        first = in[pos++];
        if (first == 0) break;
        if (pos >= in.size()) return Result::Truncated;
        last = in[pos++];
    }
    w[kEos] = 1;
    return Result::Ok;
}

// ---- codes --------------------------------------------------------------------------

struct Code {
    std::uint64_t bits = 0;
    unsigned len = 0;
};

// Codes of every leaf: the path from the root, child 0 = bit 0. Depth is bounded by the
// weights (at most 255 each over 257 leaves), far below 64.
bool assign_codes(const HuffmanTree& t, std::array<Code, HuffmanTree::kLeaves>& codes) {
    struct Item {
        int node;
        Code code;
    };
    std::array<Item, HuffmanTree::kMaxNodes> stack{};
    std::size_t sp = 0;
    stack[sp++] = {t.root, {}};
    while (sp > 0) {
        const Item it = stack[--sp];
        if (HuffmanTree::is_leaf(it.node)) {
            codes[it.node] = it.code;
            continue;
        }
        if (it.code.len >= 63) return false;
        const auto& ch = t.child[it.node - HuffmanTree::kLeaves];
        for (unsigned b = 0; b < 2; ++b) {
            stack[sp++] = {ch[b], {(it.code.bits << 1) | b, it.code.len + 1}};
        }
    }
    return true;
}

// ---- decoding table -----------------------------------------------------------------

constexpr unsigned kTableBits = 11;

// One entry per kTableBits-bit prefix: either a leaf reached within the prefix (len is
// its code length) or the internal node reached after all kTableBits bits.
struct Entry {
    std::uint16_t node;
    std::uint8_t len;
    std::uint8_t leaf;
};

class Decoder {
  public:
    Decoder(const HuffmanTree& tree, ByteView bits) : tree_(tree), reader_(bits) {
        fill(tree.root, 0, 0);
    }

    // Decodes into dst[0, room) until the end-of-stream symbol (ended = true) or until the
    // next symbol is a byte that does not fit.
    Result run(std::uint8_t* dst, std::size_t room, std::size_t& produced, bool& ended) {
        std::size_t n = 0;
        if (HuffmanTree::is_leaf(tree_.root)) {  // only EOS: the empty stream, no bits
            ended = true;
            produced = 0;
            return Result::Ok;
        }
        for (;;) {
            // Fast path: up to four short codes per window, far from both ends.
            if (reader_.exact_bits_ahead() >= 64 && room - n >= 4) {
                const std::uint64_t window = reader_.peek();
                unsigned used = 0;
                int k = 0;
                for (; k < 4; ++k) {  // 4 * kTableBits + kTableBits <= 57
                    const Entry e = table_[(window << used) >> (64 - kTableBits)];
                    if (!e.leaf || e.node == kEos) break;
                    dst[n++] = static_cast<std::uint8_t>(e.node);
                    used += e.len;
                }
                reader_.skip(used);
                if (k == 4) continue;
            }
            const std::size_t start = reader_.position();
            const int sym = next_symbol();
            if (reader_.overrun()) return Result::Truncated;
            if (sym == kEos) {
                ended = true;
                break;
            }
            if (n == room) {
                reader_.seek(start);
                break;
            }
            dst[n++] = static_cast<std::uint8_t>(sym);
        }
        produced = n;
        return Result::Ok;
    }

  private:
    void fill(int node, std::uint32_t prefix, unsigned depth) {
        if (HuffmanTree::is_leaf(node) || depth == kTableBits) {
            const unsigned span = kTableBits - depth;
            const Entry e{static_cast<std::uint16_t>(node), static_cast<std::uint8_t>(depth),
                          static_cast<std::uint8_t>(HuffmanTree::is_leaf(node))};
            std::fill_n(table_.begin() + (prefix << span), std::size_t{1} << span, e);
            return;
        }
        const auto& ch = tree_.child[node - HuffmanTree::kLeaves];
        fill(ch[0], prefix << 1, depth + 1);
        fill(ch[1], (prefix << 1) | 1, depth + 1);
    }

    int next_symbol() {
        std::uint64_t window = reader_.peek();
        const Entry e = table_[window >> (64 - kTableBits)];
        if (e.leaf) {
            reader_.skip(e.len);
            return e.node;
        }
        int node = e.node;
        unsigned used = kTableBits;
        while (!HuffmanTree::is_leaf(node)) {
            if (used == 57) {  // beyond the exact part of the window: refill
                reader_.skip(used);
                window = reader_.peek();
                used = 0;
            }
            const unsigned bit = static_cast<unsigned>(window >> (63 - used)) & 1u;
            ++used;
            node = tree_.child[node - HuffmanTree::kLeaves][bit];
        }
        reader_.skip(used);
        return node;
    }

    const HuffmanTree& tree_;
    BitReader reader_;
    std::array<Entry, std::size_t{1} << kTableBits> table_{};
};

}  // namespace

Result huff_encode(ByteView in, std::vector<std::uint8_t>& out) noexcept {
    const std::size_t start = out.size();
    try {
        const auto counts = count_bytes(in);
        const Weights w = scale_weights(counts);
        const HuffmanTree tree = build_huffman_tree(w);
        std::array<Code, HuffmanTree::kLeaves> codes{};
        if (!assign_codes(tree, codes)) return Result::Failed;

        write_header(w, out);
        std::uint64_t bits = codes[kEos].len;
        for (int b = 0; b < 256; ++b) bits += counts[b] * codes[b].len;

        // Codes are short (see assign_codes): one put per byte.
        std::array<std::uint32_t, 256> code32{};
        std::array<std::uint8_t, 256> len8{};
        for (int b = 0; b < 256; ++b) {
            if (codes[b].len > 32) return Result::Failed;
            code32[b] = static_cast<std::uint32_t>(codes[b].bits);
            len8[b] = static_cast<std::uint8_t>(codes[b].len);
        }
        BitWriter writer(out, static_cast<std::size_t>(bits / 8 + 1));
        for (const std::uint8_t b : in) writer.put(code32[b], len8[b]);
        writer.put_long(codes[kEos].bits, codes[kEos].len);
        writer.finish();
        return Result::Ok;
    } catch (const std::bad_alloc&) {
        out.resize(start);
        return Result::OutOfMemory;
    }
}

Result huff_decode(ByteView in, MutableBytes out) noexcept {
    Weights w;
    std::size_t pos = 0;
    if (const Result r = read_header(in, pos, w); r != Result::Ok) return r;
    const HuffmanTree tree = build_huffman_tree(w);
    Decoder dec(tree, in.subspan(pos));
    std::size_t produced = 0;
    bool ended = false;
    if (const Result r = dec.run(out.data(), out.size(), produced, ended); r != Result::Ok) {
        return r;
    }
    return produced == out.size() ? Result::Ok : Result::ShortOutput;
}

Result huff_decode(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept {
    Weights w;
    std::size_t pos = 0;
    if (const Result r = read_header(in, pos, w); r != Result::Ok) return r;
    const HuffmanTree tree = build_huffman_tree(w);
    Decoder dec(tree, in.subspan(pos));
    return decode_growing(out, max_size, in.size() * 3,
                          [&dec](std::uint8_t* dst, std::size_t room, std::size_t& produced,
                                 bool& ended) { return dec.run(dst, room, produced, ended); });
}

}  // namespace cdfgate::engine::codec
