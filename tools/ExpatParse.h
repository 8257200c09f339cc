// SPDX-License-Identifier: MIT
#ifndef VESKFI_EXPATPARSE_H
#define VESKFI_EXPATPARSE_H

#include <string>

namespace Vesk::Tool
{

/// Has expat itself parse a document, with namespaces and handlers that do nothing, to be timed. Throws
/// std::runtime_error if expat does not get through.
void parseWithExpat(const std::string& xml);

} // namespace Vesk::Tool

#endif // VESKFI_EXPATPARSE_H
