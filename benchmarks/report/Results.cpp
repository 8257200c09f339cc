// SPDX-License-Identifier: MIT
#include "Results.h"
#include <algorithm>
#include <cmath>

namespace Vesk::Benchmarks
{

namespace
{

bool isIn(const ItemResult& item, Goal::Scope scope)
{
    return item.isFolder == (scope == Goal::FOLDERS);
}

double toDouble(std::size_t count)
{
    return static_cast<double>(count);
}

} // namespace

std::size_t Results::itemCount(Goal::Scope scope) const
{
    return static_cast<std::size_t>(
        std::count_if(items.begin(), items.end(), [scope](const ItemResult& item) { return isIn(item, scope); }));
}

// Figure takes an item and returns its figure, or nothing.
template <class Figure>
std::optional<Mean> Results::mean(Goal::Scope scope, Figure figure) const
{
    Mean mean;
    double logarithms = 0;
    for (const ItemResult& item : items)
    {
        if (!isIn(item, scope))
            continue;
        const std::optional<double> value = figure(item);
        if (!value)
            continue;
        logarithms += std::log(*value);
        mean.least = mean.count == 0 ? *value : std::min(mean.least, *value);
        mean.greatest = std::max(mean.greatest, *value);
        ++mean.count;
    }
    if (mean.count == 0)
        return std::nullopt;
    mean.value = std::exp(logarithms / toDouble(mean.count));
    return mean;
}

std::optional<Mean> Results::octetsPerCost(std::size_t row, Goal::Scope scope) const
{
    return mean(scope,
                [row](const ItemResult& item) -> std::optional<double>
                {
                    if (!item.costs[row])
                        return std::nullopt;
                    return toDouble(item.xmlOctets) / *item.costs[row];
                });
}

std::optional<Mean> Results::costPerEvent(std::size_t row, Goal::Scope scope) const
{
    return mean(scope,
                [row](const ItemResult& item) -> std::optional<double>
                {
                    if (!item.costs[row])
                        return std::nullopt;
                    return *item.costs[row] / toDouble(item.eventCount);
                });
}

std::optional<Mean> Results::ratio(std::size_t row, std::size_t reference, Goal::Scope scope) const
{
    return mean(scope,
                [row, reference](const ItemResult& item) -> std::optional<double>
                {
                    if (!item.costs[row] || !item.costs[reference])
                        return std::nullopt;
                    return *item.costs[reference] / *item.costs[row];
                });
}

std::optional<Mean> Results::relativeSize(std::size_t form, std::size_t FormSizes::*compression,
                                          Goal::Scope scope) const
{
    return mean(scope,
                [form, compression](const ItemResult& item) -> std::optional<double>
                {
                    if (item.sizes.empty())
                        return std::nullopt;
                    return toDouble(item.sizes[form].*compression) / toDouble(item.xmlOctets);
                });
}

} // namespace Vesk::Benchmarks
