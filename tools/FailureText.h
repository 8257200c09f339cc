// SPDX-License-Identifier: MIT
#ifndef VESKFI_FAILURETEXT_H
#define VESKFI_FAILURETEXT_H

#include <exception>
#include <string>

namespace Vesk::Tool
{

/// What the user is told about an exception of the libraries: one line, with the place in the document if it is known.
std::string failureText(const std::exception& exception);

} // namespace Vesk::Tool

#endif // VESKFI_FAILURETEXT_H
