#include "codec/adaptive_tree.h"

#include <algorithm>
#include <utility>

namespace cdfgate::engine::codec {

AdaptiveTree::AdaptiveTree() {
    leaf_.fill(-1);
    nodes_[0] = {2, 1, 0};
    parent_[0] = -1;
    nodes_[1] = {1, kEos, 1};
    parent_[1] = 0;
    nodes_[2] = {1, kEscape, 1};
    parent_[2] = 0;
    leaf_[kEos] = 1;
    leaf_[kEscape] = 2;
    next_free_ = 3;
}

void AdaptiveTree::add(int symbol) {
    const int lightest = next_free_ - 1;
    const int moved = next_free_;
    const int fresh = next_free_ + 1;
    next_free_ += 2;

    nodes_[moved] = nodes_[lightest];
    parent_[moved] = static_cast<std::int16_t>(lightest);
    leaf_[nodes_[moved].child] = static_cast<std::int16_t>(moved);

    nodes_[lightest].child = static_cast<std::uint16_t>(moved);
    nodes_[lightest].is_leaf = 0;

    nodes_[fresh] = {0, static_cast<std::uint16_t>(symbol), 1};
    parent_[fresh] = static_cast<std::int16_t>(lightest);
    leaf_[symbol] = static_cast<std::int16_t>(fresh);
}

// Points the leaf table or the children's parent links at `slot`'s contents.
void AdaptiveTree::relink(int slot) {
    const Node& n = nodes_[slot];
    if (n.is_leaf) {
        leaf_[n.child] = static_cast<std::int16_t>(slot);
    } else {
        parent_[n.child] = static_cast<std::int16_t>(slot);
        parent_[n.child + 1] = static_cast<std::int16_t>(slot);
    }
}

// Contents move, parents stay with the slots.
void AdaptiveTree::swap_slots(int i, int j) {
    std::swap(nodes_[i], nodes_[j]);
    relink(i);
    relink(j);
}

void AdaptiveTree::update(int symbol) {
    if (nodes_[0].weight == kMaxWeight) rescale();
    int current = leaf_[symbol];
    while (current != -1) {
        const std::uint32_t w = ++nodes_[current].weight;
        if (current > 1 && nodes_[current - 1].weight < w) {
            // Slots before `current` are in non-increasing weight order: the first slot
            // lighter than w starts the run that current now outweighs.
            int lo = 1;
            int hi = current - 1;
            while (lo < hi) {
                const int mid = (lo + hi) / 2;
                if (nodes_[mid].weight < w) {
                    hi = mid;
                } else {
                    lo = mid + 1;
                }
            }
            const int target = lo;
            swap_slots(current, target);
            current = target;
        }
        current = parent_[current];
    }
}

// Halves the leaf weights (rounding up) and rebuilds the internal nodes bottom up,
// placing each after all heavier nodes.
void AdaptiveTree::rescale() {
    int j = next_free_ - 1;
    for (int i = j; i >= 0; --i) {
        if (nodes_[i].is_leaf) {
            nodes_[j] = nodes_[i];
            nodes_[j].weight = (nodes_[j].weight + 1) / 2;
            --j;
        }
    }
    for (int i = next_free_ - 2; j >= 0; i -= 2, --j) {
        const std::uint32_t weight = nodes_[i].weight + nodes_[i + 1].weight;
        int k = j + 1;
        while (weight < nodes_[k].weight) ++k;
        --k;
        std::copy(nodes_.begin() + j + 1, nodes_.begin() + k + 1, nodes_.begin() + j);
        nodes_[k] = {weight, static_cast<std::uint16_t>(i), 0};
    }
    for (int i = next_free_ - 1; i >= 0; --i) relink(i);
    parent_[0] = -1;
}

}  // namespace cdfgate::engine::codec
