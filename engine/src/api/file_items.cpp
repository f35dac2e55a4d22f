// Items about whole CDFs: open, create, close and delete; format, majority,
// encoding, checksum, compression, counts, versions; modes and cache sizes.
#include <algorithm>
#include <cstring>

#include "api/call.h"
#include "api/file_names.h"
#include "api/names.h"
#include "api/view.h"
#include "codec/dispatch.h"
#include "encoding/encodings.h"
#include "store/variable_data.h"

namespace cdfgate::engine::api {
namespace {

constexpr long kDefaultCacheSize = 300;
constexpr long kDefaultStageCacheSize = 125;
constexpr long kDefaultCompressCacheSize = 80;

std::unique_ptr<OpenCdf> wrap(std::unique_ptr<store::CdfFile> file, const std::string& name) {
    auto cdf = std::make_unique<OpenCdf>();
    cdf->name = base_name(name);
    cdf->file = std::move(file);
    for (const bool z : {false, true}) {
        for (std::size_t i = 0; i < cdf->file->variables(z).size(); ++i) {
            VarSelection sel;
            const Shape shape = variable_shape(*cdf, VarRef{z, i});
            for (std::size_t d = 0; d < shape.sizes.size(); ++d) {
                sel.counts[d] = shape.sizes[d];
                sel.intervals[d] = 1;
            }
            cdf->selections(z).push_back(sel);
        }
    }
    return cdf;
}

CDFstatus open_cdf(Call& call) {
    const char* const name = call.args.next<char>();
    CDFid* const id = call.args.next<CDFid>();
    std::string path;
    CDFGATE_TRY(path_to_open(name ? name : "", path).code);
    std::unique_ptr<store::CdfFile> file;
    CDFGATE_TRY(store::CdfFile::open(path, call.lib.validate, file).code);
    void* const key = call.lib.add(wrap(std::move(file), name));
    call.lib.current = key_of(key);
    *id = key;
    return CDF_OK;
}

CDFstatus create_cdf(Call& call) {
    const char* const name = call.args.next<char>();
    const long num_dims = call.args.next_long();
    const long* const dim_sizes = call.args.next_array<long>(
        num_dims < 0 || num_dims > CDF_MAX_DIMS ? 0 : static_cast<std::size_t>(num_dims));
    CDFid* const id = call.args.next<CDFid>();
    std::string path;
    CDFGATE_TRY(path_to_create(name ? name : "", path).code);
    if (num_dims < 0 || num_dims > CDF_MAX_DIMS) return BAD_NUM_DIMS;
    store::CreateOptions options;
    options.backward = call.lib.backward_file;
    for (long d = 0; d < num_dims; ++d) {
        if (dim_sizes[d] < 1 || dim_sizes[d] > INT32_MAX) return BAD_DIM_SIZE;
        options.r_dim_sizes.push_back(static_cast<std::int32_t>(dim_sizes[d]));
    }
    std::unique_ptr<store::CdfFile> file;
    CDFGATE_TRY(store::CdfFile::create(path, options, file).code);
    void* const key = call.lib.add(wrap(std::move(file), name));
    call.lib.current = key_of(key);
    *id = key;
    return CDF_OK;
}

CDFstatus close_cdf(Call& call, OpenCdf& cdf) {
    const Status status = cdf.file->close();
    call.lib.remove(call.lib.current);
    return status.code;
}

CDFstatus delete_cdf(Call& call, OpenCdf& cdf) {
    const Status status = cdf.file->remove();
    call.lib.remove(call.lib.current);
    return status.code;
}

bool any_variable(const store::CdfFile& file) {
    return !file.variables(false).empty() || !file.variables(true).empty();
}

bool any_entry(const store::CdfFile& file) {
    return std::any_of(
        file.attributes().begin(), file.attributes().end(),
        [](const store::Attribute& a) { return !a.gr_entries.empty() || !a.z_entries.empty(); });
}

bool any_record(const store::CdfFile& file) {
    if (file.data_written()) return true;
    for (const bool z : {false, true}) {
        for (const auto& v : file.variables(z)) {
            if (v.vdr.max_rec >= 0) return true;
        }
    }
    return false;
}

long checksum_mode(const store::CdfFile& file) {
    const std::int32_t flags = file.cdr().flags;
    if (!file.v3() || !(flags & format::kCdrChecksum)) return NO_CHECKSUM;
    if (flags & format::kCdrMd5) return MD5_CHECKSUM;
    if (flags & format::kCdrOtherChecksum) return OTHER_CHECKSUM;
    return NO_CHECKSUM;
}

long max_rec(const OpenCdf& cdf, bool z) {
    long max = -1;
    for (const auto& v : cdf.file->variables(z)) max = std::max<long>(max, v.vdr.max_rec);
    return max;
}

CDFstatus get_compression(Call& call, const format::Cpr& cpr, long percent) {
    long* const type = call.args.next<long>();
    long* const parms = call.args.next<long>();
    long* const pct = call.args.next<long>();
    *type = cpr.c_type;
    if (cpr.c_type != NO_COMPRESSION) {
        parms[0] = cpr.parms.empty() ? 0 : cpr.parms[0];
        *pct = percent;
    } else {
        *pct = 100;
    }
    return CDF_OK;
}

// Reads (type, parms) and checks them; the result has one parameter.
CDFstatus read_compression(Call& call, format::Cpr& out) {
    const long type = call.args.next_long();
    const long* const parms = call.args.next<long>();
    out = format::Cpr{};
    if (type == NO_COMPRESSION) return CDF_OK;
    const auto method = codec::method_of_type(static_cast<int>(type));
    if (!method || type > INT32_MAX) return UNKNOWN_COMPRESSION;
    const long parm = parms ? parms[0] : 0;
    if (parm < INT32_MIN || parm > INT32_MAX ||
        !codec::valid_parameter(*method, static_cast<int>(parm))) {
        return BAD_COMPRESSION_PARM;
    }
    out.c_type = static_cast<std::int32_t>(type);
    out.parms = {static_cast<std::int32_t>(parm)};
    return CDF_OK;
}

CDFstatus handle_get(long item, Call& call, OpenCdf& cdf) {
    store::CdfFile& file = *cdf.file;
    const bool zmode = cdf.zmode != zMODEoff;
    switch (item) {
        case CDF_ENCODING_:
            return put_long(call, file.encoding());
        case CDF_MAJORITY_:
            return put_long(call, file.row_major() ? ROW_MAJOR : COLUMN_MAJOR);
        case CDF_FORMAT_:
            return put_long(call, file.single_file() ? SINGLE_FILE : MULTI_FILE);
        case CDF_CHECKSUM_:
            return put_long(call, checksum_mode(file));
        case CDF_COPYRIGHT_:
            copy_name(file.cdr().copyright.substr(0, CDF_COPYRIGHT_LEN), call.args.next<char>());
            return CDF_OK;
        case CDF_NUMrVARS_:
            return put_long(call, zmode ? 0 : static_cast<long>(file.variables(false).size()));
        case CDF_NUMzVARS_:
            return put_long(call, static_cast<long>(zvar_count(cdf)));
        case CDF_NUMATTRS_:
            return put_long(call, static_cast<long>(file.attributes().size()));
        case CDF_NUMgATTRS_:
        case CDF_NUMvATTRS_: {
            const bool global = item == CDF_NUMgATTRS_;
            return put_long(call, std::count_if(file.attributes().begin(), file.attributes().end(),
                                                [global](const store::Attribute& a) {
                                                    return a.is_global() == global;
                                                }));
        }
        case CDF_VERSION_:
            return put_long(call, file.cdr().version);
        case CDF_RELEASE_:
            return put_long(call, file.cdr().release);
        case CDF_INCREMENT_:
            return put_long(call, file.cdr().increment);
        case CDF_LEAPSECONDLASTUPDATED_: {
            const format::Cdr& cdr = file.cdr();
            const bool has_field = file.v3() && (cdr.version > 3 || cdr.release >= 6);
            return put_long(call, has_field ? file.gdr().leap_second_last_updated : -1);
        }
        case rVARs_NUMDIMS_:
            return put_long(call, static_cast<long>(file.gdr().r_dim_sizes.size()));
        case rVARs_DIMSIZES_: {
            const auto& sizes = file.gdr().r_dim_sizes;
            long* const out = call.args.next_array<long>(sizes.size());
            std::copy(sizes.begin(), sizes.end(), out);
            return CDF_OK;
        }
        case rVARs_MAXREC_:
            return put_long(call, zmode ? -1 : max_rec(cdf, false));
        case zVARs_MAXREC_:
            return put_long(call, zmode ? std::max(max_rec(cdf, false), max_rec(cdf, true))
                                        : max_rec(cdf, true));
        case CDF_COMPRESSION_:
            return get_compression(call, file.file_compression(), file.file_compression_percent());
        default:
            return kNotHandled;
    }
}

CDFstatus put_encoding(Call& call, OpenCdf& cdf) {
    long code = call.args.next_long();
    if (code == HOST_ENCODING) code = encoding::host_encoding();
    if (!encoding::is_storable_encoding(code)) return BAD_ENCODING;
    if (any_variable(*cdf.file) || any_entry(*cdf.file)) return CANNOT_CHANGE;
    CDFGATE_TRY(check_writable(cdf));
    cdf.file->cdr().encoding = static_cast<std::int32_t>(code);
    cdf.file->touch();
    return CDF_OK;
}

CDFstatus put_majority(Call& call, OpenCdf& cdf) {
    const long majority = call.args.next_long();
    if (majority != ROW_MAJOR && majority != COLUMN_MAJOR) return BAD_MAJORITY;
    if (any_record(*cdf.file)) return CANNOT_CHANGE;
    CDFGATE_TRY(check_writable(cdf));
    std::int32_t& flags = cdf.file->cdr().flags;
    flags =
        majority == ROW_MAJOR ? (flags | format::kCdrRowMajor) : (flags & ~format::kCdrRowMajor);
    cdf.file->touch();
    return CDF_OK;
}

CDFstatus put_format(Call& call, OpenCdf& cdf) {
    const long fmt = call.args.next_long();
    if (fmt != SINGLE_FILE && fmt != MULTI_FILE) return BAD_FORMAT;
    if (any_variable(*cdf.file)) return CANNOT_CHANGE;
    CDFGATE_TRY(check_writable(cdf));
    std::int32_t& flags = cdf.file->cdr().flags;
    flags =
        fmt == SINGLE_FILE ? (flags | format::kCdrSingleFile) : (flags & ~format::kCdrSingleFile);
    cdf.file->touch();
    return CDF_OK;
}

CDFstatus put_checksum(Call& call, OpenCdf& cdf) {
    const long mode = call.args.next_long();
    if (mode != NO_CHECKSUM && mode != MD5_CHECKSUM && mode != OTHER_CHECKSUM) return BAD_CHECKSUM;
    if (!cdf.file->single_file()) return CANNOT_CHANGE;
    CDFGATE_TRY(check_writable(cdf));
    std::int32_t& flags = cdf.file->cdr().flags;
    flags &= ~(format::kCdrChecksum | format::kCdrMd5 | format::kCdrOtherChecksum);
    if (mode == MD5_CHECKSUM) flags |= format::kCdrChecksum | format::kCdrMd5;
    if (mode == OTHER_CHECKSUM) flags |= format::kCdrChecksum | format::kCdrOtherChecksum;
    cdf.file->touch();
    return CDF_OK;
}

CDFstatus put_file_compression(Call& call, OpenCdf& cdf) {
    format::Cpr cpr;
    CDFGATE_TRY(read_compression(call, cpr));
    if (!cdf.file->single_file() && cpr.c_type != NO_COMPRESSION) return CANNOT_COMPRESS;
    CDFGATE_TRY(check_writable(cdf));
    cdf.file->set_file_compression(cpr);
    return CDF_OK;
}

CDFstatus select_cache(Call& call, long& slot) {
    const long size = call.args.next_long();
    if (size < 0) return BAD_CACHE_SIZE;
    slot = size;
    return CDF_OK;
}

CDFstatus select_read_only(Call& call, OpenCdf& cdf) {
    const long mode = call.args.next_long();
    if (mode != READONLYon && mode != READONLYoff) return BAD_READONLY_MODE;
    // Read-only mode can only be entered on a CDF not changed since it was opened.
    if (mode == READONLYon && cdf.file->modified()) return CDF_OK;
    cdf.read_only = mode == READONLYon;
    return CDF_OK;
}

CDFstatus select_zmode(Call& call, OpenCdf& cdf) {
    const long mode = call.args.next_long();
    if (mode != zMODEoff && mode != zMODEon1 && mode != zMODEon2) return BAD_zMODE;
    cdf.zmode = mode;
    cdf.cur_zvar.reset();
    cdf.cur_rvar.reset();
    cdf.cur_attr.reset();
    cdf.cur_gentry.reset();
    cdf.cur_rentry.reset();
    cdf.cur_zentry.reset();
    // Selections are kept per stored variable; the view's shape may differ.
    for (const bool z : {false, true}) {
        for (std::size_t i = 0; i < cdf.file->variables(z).size(); ++i) {
            VarSelection& sel = cdf.selections(z)[i];
            const Shape shape = variable_shape(cdf, VarRef{z, i});
            sel.indices.fill(0);
            sel.intervals.fill(1);
            for (std::size_t d = 0; d < shape.sizes.size(); ++d) sel.counts[d] = shape.sizes[d];
        }
    }
    return CDF_OK;
}

CDFstatus handle_select(long item, Call& call, OpenCdf& cdf) {
    switch (item) {
        case CDF_READONLY_MODE_:
            return select_read_only(call, cdf);
        case CDF_zMODE_:
            return select_zmode(call, cdf);
        case CDF_DECODING_: {
            long code = call.args.next_long();
            if (code == HOST_DECODING)
                code = HOST_DECODING;
            else if (!encoding::is_storable_encoding(code))
                return BAD_DECODING;
            cdf.decoding = code;
            return CDF_OK;
        }
        case CDF_NEGtoPOSfp0_MODE_: {
            const long mode = call.args.next_long();
            if (mode != NEGtoPOSfp0on && mode != NEGtoPOSfp0off) return BAD_NEGtoPOSfp0_MODE;
            cdf.neg_to_pos_fp0 = mode;
            return CDF_OK;
        }
        case CDF_CACHESIZE_:
            return select_cache(call, cdf.cache_size);
        case STAGE_CACHESIZE_:
            return select_cache(call, cdf.stage_cache_size);
        case COMPRESS_CACHESIZE_:
            return select_cache(call, cdf.compress_cache_size);
        case zVARs_CACHESIZE_: {
            const long size = call.args.next_long();
            if (cdf.file->single_file()) return SINGLE_FILE_FORMAT;
            if (size < 0) return BAD_CACHE_SIZE;
            for (auto& sel : cdf.z_selections) sel.cache_size = size;
            return CDF_OK;
        }
        default:
            return kNotHandled;
    }
}

long cache_in_force(long selected, long fallback) {
    return selected > 0 ? selected : fallback;
}

CDFstatus handle_confirm(long item, Call& call, OpenCdf& cdf) {
    switch (item) {
        case CDF_NAME_:
            copy_name(cdf.name, call.args.next<char>());
            return CDF_OK;
        case CDF_READONLY_MODE_:
            return put_long(call, cdf.read_only ? READONLYon : READONLYoff);
        case CDF_zMODE_:
            return put_long(call, cdf.zmode);
        case CDF_DECODING_:
            return put_long(call, cdf.decoding);
        case CDF_NEGtoPOSfp0_MODE_:
            return put_long(call, cdf.neg_to_pos_fp0);
        case CDF_CACHESIZE_:
            return put_long(call, cache_in_force(cdf.cache_size, kDefaultCacheSize));
        case STAGE_CACHESIZE_:
            return put_long(call, cache_in_force(cdf.stage_cache_size, kDefaultStageCacheSize));
        case COMPRESS_CACHESIZE_:
            return put_long(call,
                            cache_in_force(cdf.compress_cache_size, kDefaultCompressCacheSize));
        default:
            return kNotHandled;
    }
}

CDFstatus handle_put(long item, Call& call, OpenCdf& cdf) {
    switch (item) {
        case CDF_ENCODING_:
            return put_encoding(call, cdf);
        case CDF_MAJORITY_:
            return put_majority(call, cdf);
        case CDF_FORMAT_:
            return put_format(call, cdf);
        case CDF_CHECKSUM_:
            return put_checksum(call, cdf);
        case CDF_COMPRESSION_:
            return put_file_compression(call, cdf);
        default:
            return kNotHandled;
    }
}

bool is_file_item(long op, long item) {
    switch (op) {
        case GET_:
            return item == CDF_ENCODING_ || item == CDF_MAJORITY_ || item == CDF_FORMAT_ ||
                   item == CDF_CHECKSUM_ || item == CDF_COPYRIGHT_ || item == CDF_NUMrVARS_ ||
                   item == CDF_NUMzVARS_ || item == CDF_NUMATTRS_ || item == CDF_NUMgATTRS_ ||
                   item == CDF_NUMvATTRS_ || item == CDF_VERSION_ || item == CDF_RELEASE_ ||
                   item == CDF_INCREMENT_ || item == CDF_LEAPSECONDLASTUPDATED_ ||
                   item == rVARs_NUMDIMS_ || item == rVARs_DIMSIZES_ || item == rVARs_MAXREC_ ||
                   item == zVARs_MAXREC_ || item == CDF_COMPRESSION_;
        case PUT_:
            return item == CDF_ENCODING_ || item == CDF_MAJORITY_ || item == CDF_FORMAT_ ||
                   item == CDF_CHECKSUM_ || item == CDF_COMPRESSION_;
        case SELECT_:
            return item == CDF_READONLY_MODE_ || item == CDF_zMODE_ || item == CDF_DECODING_ ||
                   item == CDF_NEGtoPOSfp0_MODE_ || item == CDF_CACHESIZE_ ||
                   item == STAGE_CACHESIZE_ || item == COMPRESS_CACHESIZE_ ||
                   item == zVARs_CACHESIZE_;
        case CONFIRM_:
            return item == CDF_NAME_ || item == CDF_READONLY_MODE_ || item == CDF_zMODE_ ||
                   item == CDF_DECODING_ || item == CDF_NEGtoPOSfp0_MODE_ ||
                   item == CDF_CACHESIZE_ || item == STAGE_CACHESIZE_ ||
                   item == COMPRESS_CACHESIZE_;
        case CLOSE_:
        case DELETE_:
            return item == CDF_;
        default:
            return false;
    }
}

}  // namespace

CDFstatus handle_file_item(long op, long item, Call& call) {
    if (op == OPEN_ && item == CDF_) return open_cdf(call);
    if (op == CREATE_ && item == CDF_) return create_cdf(call);
    if (!is_file_item(op, item)) return kNotHandled;
    OpenCdf* const cdf = call.cdf();
    if (cdf == nullptr) return NO_CDF_SELECTED;
    switch (op) {
        case CLOSE_:
            return close_cdf(call, *cdf);
        case DELETE_:
            return delete_cdf(call, *cdf);
        case GET_:
            return handle_get(item, call, *cdf);
        case PUT_:
            return handle_put(item, call, *cdf);
        case SELECT_:
            return handle_select(item, call, *cdf);
        default:
            return handle_confirm(item, call, *cdf);
    }
}

}  // namespace cdfgate::engine::api
