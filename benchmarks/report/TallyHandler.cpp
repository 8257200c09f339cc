// SPDX-License-Identifier: MIT
#include "TallyHandler.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"

namespace Vesk::Benchmarks
{

Tally TallyHandler::tallyOfFIS(const std::string& fis)
{
    TallyHandler handler;
    FastInfoset::FastInfosetParser parser;
    parser.setContentHandler(&handler);
    parser.parseMemoryNP(fis.data(), fis.size());
    return handler.tally();
}

} // namespace Vesk::Benchmarks
