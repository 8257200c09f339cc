// SPDX-License-Identifier: MIT
#include "LossWarnings.h"
#include "Messages.h"

namespace Vesk::Tool
{

namespace
{

constexpr unsigned long MAX_WARNINGS = 20;

} // namespace

LossWarnings::LossWarnings(const std::string& file, Messages& messages)
    : _file(file),
      _messages(messages)
{
}

void LossWarnings::lost(const std::string& what)
{
    if (++_count <= MAX_WARNINGS)
        _messages.warning(_file + ": " + what);
}

void LossWarnings::sumUp()
{
    if (_count > MAX_WARNINGS)
        _messages.warning(_file + ": " + std::to_string(_count - MAX_WARNINGS) + " more are lost");
}

} // namespace Vesk::Tool
