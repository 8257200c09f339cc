// SPDX-License-Identifier: MIT
#ifndef VESKFI_COMPARISON_H
#define VESKFI_COMPARISON_H

#include <array>
#include <cstdint>
#include <string>

namespace Vesk::Tool
{

/// What a document, or several together, take as XML text, as Fast Infoset and as Fast Infoset with typed content: octets
/// and time.
class Comparison
{
public:
    struct Form
    {
        const char* name;
        std::uint64_t octets = 0;
        std::uint64_t deflatedOctets = 0;
        double encodeSeconds = 0; ///< from the XML text, which is parsed for that; 0 for the text itself
        double parseSeconds = 0;  ///< the text by expat, with namespaces
    };

    /// Nothing.
    Comparison() = default;

    /// Measures a document, all of it in memory. Times are those of the fastest of several runs. Throws what the parsers
    /// throw.
    explicit Comparison(const std::string& xml);

    Comparison& operator+=(const Comparison& other);

    /// One line a form under a heading.
    std::string text(const std::string& title) const;

private:
    void measure(Form& form, const std::string& xml, int options);

    std::array<Form, 3> _forms = {{{"XML text"}, {"Fast Infoset"}, {"Fast Infoset typed"}}};
};

} // namespace Vesk::Tool

#endif // VESKFI_COMPARISON_H
