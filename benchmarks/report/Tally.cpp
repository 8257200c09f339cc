// SPDX-License-Identifier: MIT
#include "Tally.h"
#include <tuple>

namespace Vesk::Benchmarks
{

namespace
{

auto fields(const Tally& tally)
{
    return std::tie(tally.elements, tally.ends, tally.attributes, tally.nameOctets, tally.valueOctets,
                    tally.textOctets);
}

} // namespace

Tally& Tally::operator+=(const Tally& other)
{
    elements += other.elements;
    ends += other.ends;
    attributes += other.attributes;
    nameOctets += other.nameOctets;
    valueOctets += other.valueOctets;
    textOctets += other.textOctets;
    return *this;
}

bool operator==(const Tally& left, const Tally& right)
{
    return fields(left) == fields(right);
}

bool operator!=(const Tally& left, const Tally& right)
{
    return !(left == right);
}

std::ostream& operator<<(std::ostream& out, const Tally& tally)
{
    return out << tally.elements << " elements, " << tally.ends << " ends, " << tally.attributes << " attributes, "
               << tally.nameOctets << " octets of names, " << tally.valueOctets << " of values, " << tally.textOctets
               << " of text";
}

} // namespace Vesk::Benchmarks
