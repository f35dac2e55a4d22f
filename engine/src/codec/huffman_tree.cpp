#include "codec/huffman_tree.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace cdfgate::engine::codec {

HuffmanTree build_huffman_tree(const std::array<std::uint32_t, HuffmanTree::kLeaves>& weights) {
    using Entry = std::pair<std::uint32_t, std::uint16_t>;  // weight, node: min-heap order
    std::array<Entry, HuffmanTree::kMaxNodes> heap{};
    std::size_t n = 0;
    for (int s = 0; s < HuffmanTree::kLeaves; ++s) {
        if (weights[s] != 0) heap[n++] = {weights[s], static_cast<std::uint16_t>(s)};
    }
    const auto greater = std::greater<Entry>{};
    std::make_heap(heap.begin(), heap.begin() + n, greater);

    HuffmanTree tree;
    if (n == 0) return tree;  // unreachable for callers: EOS always has weight 1
    int next = HuffmanTree::kLeaves;
    while (n > 1) {
        std::pop_heap(heap.begin(), heap.begin() + n, greater);
        const Entry first = heap[--n];
        std::pop_heap(heap.begin(), heap.begin() + n, greater);
        const Entry second = heap[--n];
        tree.child[next - HuffmanTree::kLeaves] = {first.second, second.second};
        heap[n++] = {first.first + second.first, static_cast<std::uint16_t>(next)};
        std::push_heap(heap.begin(), heap.begin() + n, greater);
        ++next;
    }
    tree.root = heap[0].second;
    return tree;
}

}  // namespace cdfgate::engine::codec
