#include "store/model.h"

#include <algorithm>

namespace cdfgate::engine::store {

Entry* Attribute::find_entry(bool z, std::int32_t number) {
    auto& list = entries(z);
    const auto it = std::find_if(list.begin(), list.end(),
                                 [number](const Entry& e) { return e.number == number; });
    return it == list.end() ? nullptr : &*it;
}

const Entry* Attribute::find_entry(bool z, std::int32_t number) const {
    return const_cast<Attribute*>(this)->find_entry(z, number);
}

std::int32_t Attribute::max_entry(bool z) const {
    std::int32_t max = -1;
    for (const Entry& e : entries(z)) max = std::max(max, e.number);
    return max;
}

}  // namespace cdfgate::engine::store
