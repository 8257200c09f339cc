// SPDX-License-Identifier: MIT
#ifndef VESKFI_VOCABULARIES_H
#define VESKFI_VOCABULARIES_H

#include <string>
#include <vector>

namespace Vesk::Tool
{

class CommandOptions;

/// The external vocabularies that the user supplies for documents that name them: "--vocab URI=FILE".
class Vocabularies
{
public:
    void declareOption(CommandOptions& options);

    /// Makes the libraries open these files for these URIs, and nothing else whatever a document names. For the whole
    /// process; to be called before the first document is read. Throws UsageError.
    void install() const;

private:
    std::vector<std::string> _options;
};

} // namespace Vesk::Tool

#endif // VESKFI_VOCABULARIES_H
