// SPDX-License-Identifier: MIT
#ifndef VESKFI_LOSSWARNINGS_H
#define VESKFI_LOSSWARNINGS_H

#include <string>

namespace Vesk::Tool
{

class Messages;

/// Warns of what one document loses. One that is all losses is not worth a message for each: behind the first ones they
/// are only counted.
class LossWarnings
{
public:
    /// Both are borrowed. file: how messages call it.
    LossWarnings(const std::string& file, Messages& messages);

    /// what: "line 3, column 5: ... is lost".
    void lost(const std::string& what);

    /// To be called at the end of the document: tells how many losses there was no warning of.
    void sumUp();

private:
    const std::string& _file;
    Messages& _messages;
    unsigned long _count = 0;
};

} // namespace Vesk::Tool

#endif // VESKFI_LOSSWARNINGS_H
