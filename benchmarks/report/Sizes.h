// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_SIZES_H
#define VESK_BENCHMARKS_SIZES_H

#include "Corpus.h"
#include <cstddef>
#include <vector>

namespace Vesk::Benchmarks
{

/// The octets of a form, as it is and compressed. The documents of a folder are compressed one by one.
struct FormSizes
{
    std::size_t plain = 0;
    std::size_t gzip = 0; ///< gzip -6
    std::size_t zstd = 0; ///< zstd -3
};

/// What the forms are called: XML text, and Fast Infoset with different limits for indexed strings.
const std::vector<std::string>& formNames();

/// The sizes of an item in each of the forms.
std::vector<FormSizes> sizesOf(const Item& item);

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_SIZES_H
