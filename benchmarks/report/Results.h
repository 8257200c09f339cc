// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_RESULTS_H
#define VESK_BENCHMARKS_RESULTS_H

#include "Rows.h"
#include "Sizes.h"
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Vesk::Benchmarks
{

/// What costs are given in.
enum class Unit
{
    SECONDS,
    INSTRUCTIONS
};

struct ItemResult
{
    std::string name;
    bool isFolder = false;
    std::size_t documentCount = 0;
    std::size_t xmlOctets = 0;
    std::size_t eventCount = 0;
    std::vector<std::optional<double>> costs; ///< by row; none where the row was left out
    std::vector<FormSizes> sizes;
};

struct ArrayResult
{
    std::string name;
    double goal = 0;
    std::size_t xmlOctets = 0;
    std::size_t fisOctets = 0;
    double textCost = 0;
    double fisCost = 0;   ///< value by value
    double blockCost = 0; ///< in blocks
};

/// A row that could not take part in an item.
struct Omission
{
    std::string row;
    std::string item;
    std::string reason;
};

/// The geometric mean of some figure over items, and its range.
struct Mean
{
    double value = 0;
    double least = 0;
    double greatest = 0;
    std::size_t count = 0;
};

/// All that was measured.
struct Results
{
    Unit unit = Unit::SECONDS;
    std::vector<ItemResult> items;
    std::vector<ArrayResult> arrays;
    std::vector<Omission> omissions;

    /// How many items there are in the scope.
    std::size_t itemCount(Goal::Scope scope) const;

    /// \name Over the items of the scope in which the rows took part; none without such an item
    /// @{
    /// XML octets by the row's cost.
    std::optional<Mean> octetsPerCost(std::size_t row, Goal::Scope scope) const;
    std::optional<Mean> costPerEvent(std::size_t row, Goal::Scope scope) const;
    /// The reference's cost by the row's cost.
    std::optional<Mean> ratio(std::size_t row, std::size_t reference, Goal::Scope scope) const;
    /// The size of a form by that of the XML text.
    std::optional<Mean> relativeSize(std::size_t form, std::size_t FormSizes::*compression, Goal::Scope scope) const;
    /// @}

private:
    template <class Figure>
    std::optional<Mean> mean(Goal::Scope scope, Figure figure) const;
};

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_RESULTS_H
