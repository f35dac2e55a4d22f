// A C++ program that embeds cdfgate through the built-in host. It writes a small
// space-physics style time series (TT2000 times, a magnetic-field vector, its
// component labels, global and variable attributes), closes the file, opens it again
// and prints what it holds.
//
//   cdfgate-example [FILE.cdf]      (default: a new file in the temporary directory)
#include <array>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "cdfgate/embedded.h"

namespace {

using cdfgate::embedded::Array;
using cdfgate::embedded::call;

constexpr std::size_t kRecords = 12;

double constant(const char* name) {
    return call("getConstantValue", {Array::text(name)})[0].scalarValue();
}

Array number(double value) {
    return Array::scalar(value);
}

// One minute apart from 2024-03-01T12:00:00, computed by the gateway itself.
Array minuteTimes() {
    std::vector<double> components;
    for (std::size_t i = 0; i < kRecords; ++i) {
        const std::array<double, 9> time{2024, 3, 1, 12, static_cast<double>(i), 0, 0, 0, 0};
        components.insert(components.end(), time.begin(), time.end());
    }
    const Array parts = Array::of<double>(components, {9, kRecords});
    return call("computeTT2000", {parts})[0];
}

// A slowly rotating field of about 5 nT, three components per record.
Array fieldValues() {
    std::vector<float> values;
    for (std::size_t i = 0; i < kRecords; ++i) {
        const float t = static_cast<float>(i);
        values.insert(values.end(), {4.0f + 0.1f * t, -2.5f + 0.05f * t, 1.25f - 0.02f * t});
    }
    return Array::of<float>(values, {3, kRecords});
}

void putGlobal(const Array& id, const char* name, const std::vector<std::string>& entries) {
    const double attr =
        call("createAttr", {id, Array::text(name), number(constant("GLOBAL_SCOPE"))})[0]
            .scalarValue();
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        call("putAttrgEntry", {id, number(attr), number(static_cast<double>(entry)),
                               number(constant("CDF_CHAR")), Array::text(entries[entry])});
    }
}

double variableAttribute(const Array& id, const char* name) {
    return call("createAttr", {id, Array::text(name), number(constant("VARIABLE_SCOPE"))})[0]
        .scalarValue();
}

void putText(const Array& id, double attr, double var, const std::string& text) {
    call("putAttrEntry",
         {id, number(attr), number(var), number(constant("CDF_CHAR")), Array::text(text)});
}

void writeFile(const std::string& path) {
    const Array id = call("create", {Array::text(path)})[0];
    putGlobal(id, "Project", {"cdfgate examples"});
    putGlobal(id, "Source_name", {"EXAMPLE>Example spacecraft"});
    putGlobal(id, "Descriptor", {"MAG>Magnetometer"});
    putGlobal(id, "TEXT",
              {"Synthetic magnetic field written by cdfgate-example.",
               "Values are made up; times are one minute apart."});

    const Array none = Array::empty(hvLOGICAL_CLASS);
    const Array yes = Array::logical({true});
    const double epoch =
        call("createVar", {id, Array::text("Epoch"), number(constant("CDF_TIME_TT2000")), number(1),
                           Array::empty(), yes, none})[0]
            .scalarValue();
    const double field = call("createVar", {id, Array::text("B_GSE"), number(constant("CDF_REAL4")),
                                            number(1), Array::of<double>({3}), yes, yes})[0]
                             .scalarValue();
    const double labels =
        call("createVar", {id, Array::text("label_B_GSE"), number(constant("CDF_CHAR")), number(4),
                           Array::of<double>({3}), Array::logical({false}), yes})[0]
            .scalarValue();

    const auto hyperPut = [&](double var, double components, const Array& values) {
        call("hyperPutVarData",
             {id, number(var), number(0), number(kRecords), number(1), Array::of<double>({0}),
              Array::of<double>({components}), Array::of<double>({1}), values});
    };
    call("hyperPutVarData", {id, number(epoch), number(0), number(kRecords), number(1),
                             Array::empty(), Array::empty(), Array::empty(), minuteTimes()});
    hyperPut(field, 3, fieldValues());
    call("putVarRecordData", {id, number(labels), number(0), Array::text("Bx  By  Bz  ")});

    const double fieldName = variableAttribute(id, "FIELDNAM");
    const double units = variableAttribute(id, "UNITS");
    const double depend = variableAttribute(id, "DEPEND_0");
    const double labelPointer = variableAttribute(id, "LABL_PTR_1");
    const double fill = variableAttribute(id, "FILLVAL");
    putText(id, fieldName, epoch, "Time");
    putText(id, units, epoch, "ns");
    putText(id, fieldName, field, "Magnetic field, GSE");
    putText(id, units, field, "nT");
    putText(id, depend, field, "Epoch");
    putText(id, labelPointer, field, "label_B_GSE");
    call("putAttrEntry", {id, number(fill), number(field), number(constant("CDF_REAL4")),
                          Array::of<float>({-1.0e31f})});
    call("close", {id});
}

std::string describeEntry(const Array& id, double attr, double entry, bool global) {
    const Array value =
        call(global ? "getAttrgEntry" : "getAttrEntry", {id, number(attr), number(entry)})[0];
    if (value.classId() == hvCHAR_CLASS) return "\"" + value.text() + "\"";
    if (value.numel() == 1) {
        char text[64];
        std::snprintf(text, sizeof text, "%g (%s)", value.scalarValue(), value.className().c_str());
        return text;
    }
    return std::to_string(value.numel()) + " values (" + value.className() + ")";
}

void printAttributes(const Array& id) {
    const double attributes = call("inquire", {id}, 5)[4].scalarValue();
    std::printf("\nAttributes:\n");
    for (double attr = 0; attr < attributes; ++attr) {
        const std::vector<Array> info = call("inquireAttr", {id, number(attr)}, 4);
        const bool global = info[1].text() == "GLOBAL_SCOPE";
        std::printf("  %-12s %s\n", info[0].text().c_str(), info[1].text().c_str());
        const double last = info[global ? 2 : 3].scalarValue();
        for (double entry = 0; entry <= last; ++entry) {
            try {
                const std::string text = describeEntry(id, attr, entry, global);
                if (global) {
                    std::printf("      [%g] %s\n", entry, text.c_str());
                } else {
                    const std::string var = call("getVarName", {id, number(entry)})[0].text();
                    std::printf("      %-12s %s\n", var.c_str(), text.c_str());
                }
            } catch (const cdfgate::embedded::HostError&) {
                // No entry at this number (entries may skip numbers).
            }
        }
    }
}

void printVariables(const Array& id, double variableCount) {
    std::printf("\nVariables:\n");
    for (double var = 0; var < variableCount; ++var) {
        const std::vector<Array> info = call("inquireVar", {id, number(var)}, 6);
        std::string dims;
        for (const double d :
             info[3].isEmpty() ? std::span<const double>{} : info[3].data<double>()) {
            dims += (dims.empty() ? "" : "x") + std::to_string(static_cast<int>(d));
        }
        const double records = call("getVarNumRecsWritten", {id, number(var)})[0].scalarValue();
        std::printf("  %-12s %-16s elements %g  dims [%s]  records %g\n", info[0].text().c_str(),
                    info[1].text().c_str(), info[2].scalarValue(), dims.c_str(), records);
    }
}

void printFirstRecords(const Array& id) {
    const Array epochNum = call("getVarNum", {id, Array::text("Epoch")})[0];
    const Array fieldNum = call("getVarNum", {id, Array::text("B_GSE")})[0];
    const Array times =
        call("hyperGetVarData", {id, epochNum, number(0), number(3), number(1), Array::empty(),
                                 Array::empty(), Array::empty()})[0];
    const Array parts = call("breakdownTT2000", {times})[0];
    const Array field = call("hyperGetVarData",
                             {id, fieldNum, number(0), number(3), number(1), Array::of<double>({0}),
                              Array::of<double>({3}), Array::of<double>({1})})[0];
    const Array labels =
        call("getVarRecordData",
             {id, call("getVarNum", {id, Array::text("label_B_GSE")})[0], number(0)})[0];
    std::printf("\nFirst records (labels \"%s\"):\n", labels.text().c_str());
    const auto p = parts.data<double>();
    const auto b = field.data<float>();
    for (std::size_t r = 0; r < 3; ++r) {
        const double* t = &p[9 * r];
        std::printf(
            "  %04.0f-%02.0f-%02.0fT%02.0f:%02.0f:%02.0f.%03.0f  B = [%7.3f %7.3f %7.3f] nT\n",
            t[0], t[1], t[2], t[3], t[4], t[5], t[6], b[3 * r], b[3 * r + 1], b[3 * r + 2]);
    }
}

void readFile(const std::string& path) {
    const Array id = call("open", {Array::text(path)})[0];
    const std::vector<Array> about = call("inquire", {id}, 5);
    const std::vector<Array> version = call("getVersion", {id}, 3);
    std::printf("%s: CDF %g.%g.%g, %s, %s, %g variables, %g attributes\n", path.c_str(),
                version[0].scalarValue(), version[1].scalarValue(), version[2].scalarValue(),
                about[0].text().c_str(), about[1].text().c_str(), about[3].scalarValue(),
                about[4].scalarValue());
    printVariables(id, about[3].scalarValue());
    printAttributes(id);
    printFirstRecords(id);
    call("close", {id});
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const std::filesystem::path path =
            argc > 1 ? std::filesystem::path(argv[1])
                     : std::filesystem::temp_directory_path() / "cdfgate-example.cdf";
        std::filesystem::remove(path);
        writeFile(path.string());
        readFile(path.string());
        return 0;
    } catch (const cdfgate::embedded::HostError& error) {
        std::fprintf(stderr, "cdfgate-example: %s (%s)\n", error.what(),
                     error.identifier().c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cdfgate-example: %s\n", error.what());
    }
    return 1;
}
