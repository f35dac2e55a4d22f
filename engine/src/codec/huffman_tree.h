#pragma once

#include <array>
#include <cstdint>

namespace cdfgate::engine::codec {

// The static Huffman tree of a HUFF payload. Nodes 0-255 are the byte values, 256 is
// the end-of-stream symbol, 257 onwards the internal nodes in order of creation.
struct HuffmanTree {
    static constexpr int kEos = 256;
    static constexpr int kLeaves = 257;
    static constexpr int kMaxNodes = 2 * kLeaves - 1;

    // Children of internal node k are child[k - kLeaves][0] and [1].
    std::array<std::array<std::uint16_t, 2>, kLeaves - 1> child{};
    int root = kEos;

    static bool is_leaf(int node) { return node < kLeaves; }
};

// Builds the tree from the weights of the 257 symbols (zero weight: not in the tree).
// Repeatedly merges the two lightest active nodes, ties going to the lower node number;
// the first pick becomes child 0.
HuffmanTree build_huffman_tree(const std::array<std::uint32_t, HuffmanTree::kLeaves>& weights);

}  // namespace cdfgate::engine::codec
