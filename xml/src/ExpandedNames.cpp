// SPDX-License-Identifier: MIT
#include "ExpandedNames.h"
#include "Vesk/Hash.h"
#include <algorithm>

namespace Vesk::XML
{
namespace
{
const XMLString NO_NAMESPACE;
} // namespace

ExpandedNames::Entry& ExpandedNames::findOrAdd(const char* raw, std::size_t length)
{
    if (_entries.size() >= _buckets.size())
        grow();
    const std::uint32_t rawHash = hash(raw, length);
    Entry*& bucket = _buckets[rawHash % _buckets.size()];
    for (Entry* entry = bucket; entry; entry = entry->next)
    {
        if (entry->matches(raw, length))
            return *entry;
    }
    Entry& entry = add(std::string_view(raw, length));
    entry.hash = rawHash;
    entry.next = bucket;
    bucket = &entry;
    return entry;
}

ExpandedNames::Entry& ExpandedNames::add(std::string_view raw)
{
    Entry entry = {&NO_NAMESPACE, XMLString(), XMLString(), raw.size(), 0, nullptr};
    std::string_view localName = raw;
    std::size_t separator = raw.find(SEPARATOR);
    if (separator != std::string_view::npos)
    {
        const std::string_view uri = raw.substr(0, separator);
        auto known = _uris.find(uri);
        if (known == _uris.end())
            known = _uris.emplace(uri).first;
        entry.uri = &*known;

        localName = raw.substr(separator + 1);
        separator = localName.find(SEPARATOR);
        if (separator != std::string_view::npos)
        {
            entry.qname.append(localName.substr(separator + 1)).append(1, ':');
            localName = localName.substr(0, separator);
        }
    }
    entry.localName = localName;
    entry.qname += localName;
    _entries.push_back(std::move(entry));
    return _entries.back();
}

void ExpandedNames::grow()
{
    _buckets.assign(std::max<std::size_t>(2 * _buckets.size(), 128), nullptr);
    for (Entry& entry : _entries)
    {
        Entry*& bucket = _buckets[entry.hash % _buckets.size()];
        entry.next = bucket;
        bucket = &entry;
    }
}

void ExpandedNames::clear()
{
    _recent.fill(nullptr);
    _buckets.clear();
    _entries.clear();
    _uris.clear();
}
} // namespace Vesk::XML
