// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_UNPARSEDENTITY_H
#define VESK_FASTINFOSET_UNPARSEDENTITY_H

#include "Vesk/FastInfoset/FastInfoset.h"
#include <string>
#include <utility>

namespace Vesk::FastInfoset
{

/// The declaration of an unparsed entity (X.891 clause 7.10). An absent public identifier is empty.
class VESK_FASTINFOSET_API UnparsedEntity
{
public:
    UnparsedEntity() = default;

    /// An entity with this name, these identifiers and the name of its notation.
    UnparsedEntity(std::string name, std::string publicId, std::string systemId, std::string notationName)
        : _name(std::move(name)),
          _publicId(std::move(publicId)),
          _systemId(std::move(systemId)),
          _notationName(std::move(notationName))
    {
    }

    /// What the document declares; an absent public identifier is empty.
    const std::string& name() const { return _name; }
    const std::string& publicId() const { return _publicId; }
    const std::string& systemId() const { return _systemId; }
    const std::string& notationName() const { return _notationName; }

private:
    std::string _name;
    std::string _publicId;
    std::string _systemId;
    std::string _notationName;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_UNPARSEDENTITY_H
