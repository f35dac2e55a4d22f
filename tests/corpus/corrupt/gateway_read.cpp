#include "gateway_read.h"

#include <algorithm>
#include <functional>

#include "cdfgate/embedded.h"

namespace cdfgate::corrupt {
namespace {

using embedded::Array;

constexpr double kMaxItems = 64;        // variables, attributes, entries, records each
constexpr double kMaxValues = 1 << 20;  // elements of one record read

class Reader {
  public:
    explicit Reader(GatewayRead& out) : out_(out) {}

    // Runs one call; a HostError is recorded and answers an empty result.
    std::vector<Array> call(const char* command, std::vector<Array> args, int nlhs = 1) {
        try {
            return embedded::call(command, std::move(args), nlhs);
        } catch (const embedded::HostError& e) {
            out_.errors.push_back(e.identifier());
            return {};
        }
    }

    double number(const char* command, std::vector<Array> args) {
        const auto result = call(command, std::move(args));
        return result.empty() ? -1 : result[0].scalarValue();
    }

    void read(const std::string& path) {
        const auto opened = call("open", {Array::text(path)});
        if (opened.empty()) return;
        out_.opened = true;
        id_ = opened[0];
        const auto about = call("inquire", {id_}, 5);
        if (about.size() == 5) {
            variables(std::min(about[3].scalarValue(), kMaxItems));
            attributes(std::min(about[4].scalarValue(), kMaxItems));
        }
        call("close", {id_}, 0);
    }

  private:
    Array num(double v) const { return Array::scalar(v); }

    void variables(double count) {
        for (double v = 0; v < count; ++v) {
            const auto about = call("inquireVar", {id_, num(v)}, 6);
            if (about.size() < 4) continue;
            double values = std::max(about[2].scalarValue(), 1.0);
            for (const double d : about[3].data<double>()) values *= d;
            const double max = number("getVarMaxWrittenRecNum", {id_, num(v)});
            call("getVarPadValue", {id_, num(v)});
            call("getVarCompression", {id_, num(v)}, 3);
            if (values > kMaxValues) continue;
            for (double r = 0; r <= std::min(max, kMaxItems); ++r) {
                call("getVarRecordData", {id_, num(v), num(r)});
            }
            if (max > kMaxItems) call("getVarRecordData", {id_, num(v), num(max)});
        }
    }

    void attributes(double count) {
        for (double a = 0; a < count; ++a) {
            const auto scope = call("getAttrScope", {id_, num(a)});
            if (scope.empty()) continue;
            const bool global = scope[0].text() == "GLOBAL_SCOPE";
            const double max =
                number(global ? "getAttrMaxgEntry" : "getAttrMaxEntry", {id_, num(a)});
            for (double e = 0; e <= std::min(max, kMaxItems); ++e) {
                call(global ? "getAttrgEntry" : "getAttrEntry", {id_, num(a), num(e)});
            }
        }
    }

    GatewayRead& out_;
    Array id_;
};

}  // namespace

GatewayRead read_through_gateway(const std::string& path) {
    GatewayRead out;
    Reader(out).read(path);
    return out;
}

}  // namespace cdfgate::corrupt
