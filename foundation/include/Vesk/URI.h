// SPDX-License-Identifier: MIT
#ifndef VESK_URI_H
#define VESK_URI_H

#include "Vesk/Foundation.h"
#include <string>

namespace Vesk
{

/// A URI (RFC 3986) taken apart as far as opening it needs, or a plain file path.
///
/// A text is a URI if it begins with a scheme of at least two characters and a colon ("file:/tmp/a%20b",
/// "urn:example:1"); any other text is a path and stands for itself, percent signs and all ("a%20b", "C:a").
class VESK_FOUNDATION_API URI
{
public:
    /// Throws SyntaxException for a path in a URI with a "%" that two hexadecimal digits do not follow.
    explicit URI(const std::string& text);

    /// In lower case, without the colon; empty for a plain path.
    const std::string& getScheme() const noexcept { return _scheme; }
    /// What stands between "//" and the path ("www.example.org:8080"), as written.
    const std::string& getAuthority() const noexcept { return _authority; }
    /// The path with its percent-encoded octets decoded, without query and fragment.
    const std::string& getPath() const noexcept { return _path; }
    /// The text as it was given.
    const std::string& toString() const noexcept { return _text; }

private:
    std::string _text;
    std::string _scheme;
    std::string _authority;
    std::string _path;
};

} // namespace Vesk

#endif // VESK_URI_H
