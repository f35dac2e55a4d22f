// Hyperslab reads and writes of random shapes, strides, variances and majorities
// compared with a plain model: one array of stored values per record, indexed by
// the varying dimensions in the file's majority, and the pad for everything else.
// (How values lie inside a stored record cannot be seen through the interface;
// the byte-exact sample tests pin that down.)
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "cdf.h"
#include "test_files.h"

namespace {

struct Geometry {
    std::vector<long> sizes;
    std::vector<long> varys;
    bool row_major = true;
};

struct Box {
    long rec_start = 0, rec_count = 1, rec_interval = 1;
    std::vector<long> indices, counts, intervals;
};

// Every element of a box in buffer order (records outermost, then the majority),
// as (record, full index per dimension).
std::vector<std::pair<long, std::vector<long>>> box_elements(const Geometry& g, const Box& b) {
    std::vector<std::pair<long, std::vector<long>>> out;
    const std::size_t n = g.sizes.size();
    for (long k = 0; k < b.rec_count; ++k) {
        std::vector<long> at(n, 0);
        for (;;) {
            std::vector<long> full(n);
            for (std::size_t d = 0; d < n; ++d) full[d] = b.indices[d] + at[d] * b.intervals[d];
            out.emplace_back(b.rec_start + k * b.rec_interval, full);
            // Advance the fastest dimension first.
            std::size_t step = 0;
            for (; step < n; ++step) {
                const std::size_t d = g.row_major ? n - 1 - step : step;
                if (++at[d] < b.counts[d]) break;
                at[d] = 0;
            }
            if (step == n) break;
        }
    }
    return out;
}

// Position of an element among a record's stored values.
std::size_t stored_position(const Geometry& g, const std::vector<long>& full) {
    std::size_t pos = 0;
    const std::size_t n = g.sizes.size();
    for (std::size_t step = 0; step < n; ++step) {
        const std::size_t d = g.row_major ? step : n - 1 - step;  // slowest first
        if (g.varys[d] == 0) continue;
        pos = pos * static_cast<std::size_t>(g.sizes[d]) + static_cast<std::size_t>(full[d]);
    }
    return pos;
}

std::size_t stored_values(const Geometry& g) {
    std::size_t n = 1;
    for (std::size_t d = 0; d < g.sizes.size(); ++d) {
        if (g.varys[d] != 0) n *= static_cast<std::size_t>(g.sizes[d]);
    }
    return n;
}

class HyperslabModel : public cdfgate::test::ScratchDir {
  protected:
    std::mt19937 rng_{20261122};

    long pick(long lo, long hi) { return std::uniform_int_distribution<long>(lo, hi)(rng_); }

    Box random_box(const Geometry& g) {
        Box b;
        b.rec_start = pick(0, 6);
        b.rec_count = pick(1, 3);
        b.rec_interval = pick(1, 3);
        for (const long size : g.sizes) {
            const long index = pick(0, size - 1);
            const long interval = pick(1, 2);
            const long room = (size - 1 - index) / interval + 1;
            b.indices.push_back(index);
            b.counts.push_back(pick(1, room));
            b.intervals.push_back(interval);
        }
        return b;
    }

    static long select(const Box& b) {
        return CDFlib(SELECT_, zVAR_RECNUMBER_, b.rec_start, zVAR_RECCOUNT_, b.rec_count,
                      zVAR_RECINTERVAL_, b.rec_interval, zVAR_DIMINDICES_, b.indices.data(),
                      zVAR_DIMCOUNTS_, b.counts.data(), zVAR_DIMINTERVALS_, b.intervals.data(),
                      NULL_);
    }

    // One trial: random writes checked by random reads, before and after reopening.
    template <typename T>
    void trial(int number, long type, long encoding, T pad) {
        Geometry g;
        g.row_major = pick(0, 1) == 1;
        const long dims = pick(0, 4);
        for (long d = 0; d < dims; ++d) {
            g.sizes.push_back(pick(1, 4));
            g.varys.push_back(pick(0, 3) == 0 ? NOVARY : VARY);
        }
        const std::string name = path("m" + std::to_string(number));
        CDFid id = nullptr;
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), CDF_OK);
        ASSERT_EQ(CDFlib(PUT_, CDF_ENCODING_, encoding, PUT_, CDF_MAJORITY_,
                         g.row_major ? ROW_MAJOR : COLUMN_MAJOR, NULL_),
                  CDF_OK);
        long var = -1;
        ASSERT_EQ(CDFlib(CREATE_, zVAR_, "v", type, 1L, dims, g.sizes.data(), VARY, g.varys.data(),
                         &var, NULL_),
                  CDF_OK);
        ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, pick(0, 3), NULL_), CDF_OK);

        std::map<long, std::vector<T>> model;  // record -> stored values
        const auto record = [&](long r) -> std::vector<T>& {
            auto& rec = model[r];
            if (rec.empty()) rec.assign(stored_values(g), pad);
            return rec;
        };
        long max_rec = -1;
        T next = 1;
        for (int w = 0; w < 8; ++w) {
            const Box b = random_box(g);
            std::vector<T> values;
            for (const auto& [r, full] : box_elements(g, b)) {
                values.push_back(next);
                record(r)[stored_position(g, full)] = next++;
            }
            // Records skipped over by the write are gaps holding the pad.
            const long last = b.rec_start + (b.rec_count - 1) * b.rec_interval;
            for (long r = max_rec + 1; r < last; ++r) record(r);
            max_rec = std::max(max_rec, last);
            ASSERT_EQ(select(b), CDF_OK);
            ASSERT_EQ(CDFlib(PUT_, zVAR_HYPERDATA_, values.data(), NULL_), CDF_OK);
        }
        for (int pass = 0; pass < 2; ++pass) {
            if (pass == 1) {
                ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
                ASSERT_EQ(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), CDF_OK);
                ASSERT_EQ(CDFlib(SELECT_, zVAR_, var, NULL_), CDF_OK);
            }
            for (int r = 0; r < 8; ++r) {
                const Box b = random_box(g);
                const auto elements = box_elements(g, b);
                std::vector<T> got(elements.size(), T{7});
                ASSERT_EQ(select(b), CDF_OK);
                const long status = CDFlib(GET_, zVAR_HYPERDATA_, got.data(), NULL_);
                bool any_virtual = false;
                for (std::size_t e = 0; e < elements.size(); ++e) {
                    const auto& [rec, full] = elements[e];
                    any_virtual = any_virtual || rec > max_rec;
                    const T want = rec > max_rec ? pad : model.at(rec)[stored_position(g, full)];
                    ASSERT_EQ(got[e], want) << "trial " << number << " pass " << pass << " element "
                                            << e << " record " << rec;
                }
                ASSERT_EQ(status, any_virtual ? VIRTUAL_RECORD_DATA : CDF_OK);
            }
        }
        long got_max = -9;
        ASSERT_EQ(CDFlib(GET_, zVAR_MAXREC_, &got_max, CLOSE_, CDF_, NULL_), CDF_OK);
        EXPECT_EQ(got_max, max_rec);
    }
};

TEST_F(HyperslabModel, HostEncodingIntegers) {
    for (int t = 0; t < 40; ++t) trial<std::int32_t>(t, CDF_INT4, HOST_ENCODING, -2147483647);
}

TEST_F(HyperslabModel, BigEndianReals) {
    for (int t = 0; t < 40; ++t) trial<double>(t, CDF_REAL8, NETWORK_ENCODING, -1.0e30);
}

}  // namespace
