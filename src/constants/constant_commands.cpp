#include "constants/constant_commands.h"

#include <array>
#include <cctype>

#include "constants/constant_table.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {

void getConstantNames(int, OutputSlot* plhs, int, const hvArray* const*, const CommandEntry*) {
    const constants::ConstantTable& table = constants::constantTable();
    const std::array<std::size_t, 2> dims{table.size(), 1};
    matrix::array_ptr names = matrix::detail::do_create_cell(dims);
    std::size_t row = 0;
    for (const auto& [name, value] : table) {
        hvSetCell(names.get(), row++, matrix::create(name.data(), name.size()));
    }
    plhs[0] = std::move(names);
}

void getConstantValue(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    std::string name = getStringArg(prhs[0]);
    for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const auto found = constants::constantTable().find(name);
    if (found == constants::constantTable().end()) {
        hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedConstantName(name));
    }
    plhs[0] = createDoubleScalar(found->second);
}

}  // namespace cdfgate::gateway
