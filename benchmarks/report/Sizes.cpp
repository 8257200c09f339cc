// SPDX-License-Identifier: MIT
#include "Sizes.h"
#include "Vesk/Exception.h"
#include "Workload.h"
#include <string>
#include <zlib.h>
#include <zstd.h>

namespace Vesk::Benchmarks
{

namespace
{

constexpr int INDEXING_LIMITS[] = {0, DEFAULT_INDEXED_LENGTH, 64, NO_LIMIT};

constexpr int GZIP_LEVEL = 6;
constexpr int ZSTD_LEVEL = 3;
constexpr int GZIP_WINDOW_BITS = 15 + 16; // zlib's largest window, in a gzip wrapper
constexpr int GZIP_MEMORY_LEVEL = 8;

std::size_t gzipOctets(const std::string& text)
{
    z_stream stream{};
    if (deflateInit2(&stream, GZIP_LEVEL, Z_DEFLATED, GZIP_WINDOW_BITS, GZIP_MEMORY_LEVEL, Z_DEFAULT_STRATEGY) != Z_OK)
        throw RuntimeException("zlib cannot start");
    std::string out(deflateBound(&stream, text.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(&out[0]);
    stream.avail_out = static_cast<uInt>(out.size());
    const int result = deflate(&stream, Z_FINISH);
    const std::size_t octetCount = stream.total_out;
    deflateEnd(&stream);
    if (result != Z_STREAM_END)
        throw RuntimeException("zlib cannot compress");
    return octetCount;
}

std::size_t zstdOctets(const std::string& text)
{
    std::string out(ZSTD_compressBound(text.size()), '\0');
    const std::size_t octetCount = ZSTD_compress(&out[0], out.size(), text.data(), text.size(), ZSTD_LEVEL);
    if (ZSTD_isError(octetCount) != 0)
        throw RuntimeException("zstd cannot compress", ZSTD_getErrorName(octetCount));
    return octetCount;
}

void add(const std::string& text, FormSizes& sizes)
{
    sizes.plain += text.size();
    sizes.gzip += gzipOctets(text);
    sizes.zstd += zstdOctets(text);
}

} // namespace

const std::vector<std::string>& formNames()
{
    static const std::vector<std::string> NAMES = {"XML text", "Fast Infoset, limit 0", "Fast Infoset, limit 16",
                                                   "Fast Infoset, limit 64", "Fast Infoset, no limit"};
    return NAMES;
}

std::vector<FormSizes> sizesOf(const Item& item)
{
    std::vector<FormSizes> sizes(formNames().size());
    for (const std::string& xml : item.documents)
    {
        auto form = sizes.begin();
        add(xml, *form);
        for (const int limit : INDEXING_LIMITS)
            add(convertedToFIS(xml, limit), *++form);
    }
    return sizes;
}

} // namespace Vesk::Benchmarks
