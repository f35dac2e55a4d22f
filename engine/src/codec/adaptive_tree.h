#pragma once

#include <array>
#include <cstdint>

namespace cdfgate::engine::codec {

// The model shared by the AHUFF encoder and decoder. Slots are kept in non-increasing
// weight order; slot 0 is the root; the children of an internal node occupy an adjacent
// pair (odd, odd + 1); the odd slot is bit 0.
class AdaptiveTree {
  public:
    static constexpr int kEos = 256;
    static constexpr int kEscape = 257;
    static constexpr int kSymbols = 258;
    static constexpr int kSlots = 2 * kSymbols - 1;
    static constexpr std::uint32_t kMaxWeight = 32768;

    AdaptiveTree();

    // Slot of the leaf for a symbol, or -1 when the byte has not been seen.
    int leaf(int symbol) const { return leaf_[symbol]; }
    bool is_leaf(int slot) const { return nodes_[slot].is_leaf != 0; }
    // Symbol of a leaf slot, or first child slot of an internal one.
    int child(int slot) const { return nodes_[slot].child; }
    int parent(int slot) const { return parent_[slot]; }

    // Splits the last slot to give `symbol` a leaf of weight 0. The caller ensures the
    // byte is new (so the tree never outgrows its slots).
    void add(int symbol);
    // Counts one more occurrence of `symbol`, keeping the slot order.
    void update(int symbol);

  private:
    struct Node {
        std::uint32_t weight;
        std::uint16_t child;
        std::uint8_t is_leaf;
    };

    void swap_slots(int i, int j);
    void relink(int slot);
    void rescale();

    std::array<Node, kSlots> nodes_{};
    std::array<std::int16_t, kSlots> parent_{};
    std::array<std::int16_t, kSymbols> leaf_{};
    int next_free_ = 0;
};

}  // namespace cdfgate::engine::codec
