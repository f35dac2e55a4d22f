#include <stdexcept>
#include <string>

#include "array_storage.h"

namespace {

void requireCellIndex(const hvArray* cell, std::size_t index) {
    if (cell->classId != hvCELL_CLASS) {
        throw std::invalid_argument(std::string("cell access on an array of class ") +
                                    hvGetClassName(cell));
    }
    if (index >= cell->cells.size()) {
        throw std::out_of_range("cell index " + std::to_string(index) + " beyond " +
                                std::to_string(cell->cells.size()) + " cells");
    }
}

}  // namespace

// Replaces (and destroys) whatever the cell held before.
void hvSetCell(hvArray* cell, std::size_t index, matrix::array_ptr element) {
    requireCellIndex(cell, index);
    cell->cells[index] = std::move(element);
}

const hvArray* hvGetCell(const hvArray* cell, std::size_t index) {
    requireCellIndex(cell, index);
    return cell->cells[index].get();
}
