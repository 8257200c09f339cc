// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_CONTESTANTS_H
#define VESK_BENCHMARKS_CONTESTANTS_H

#include "Contestant.h"
#include "TemporaryFile.h"
#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include <memory>

/// The contestants, each in a source of its own.
namespace Vesk::Benchmarks
{

/// Whether all documents are read by one parser, or each by a parser made for it.
enum class Lifetime
{
    REUSED,
    FRESH
};

enum class Input
{
    MEMORY,
    STREAM
};

using ContestantPtr = std::unique_ptr<Contestant>;
using Tables = FastInfoset::DocumentVocabulary::VocabularyImpl;

/// \name Reading XML text
/// @{
ContestantPtr makeExpat(Workload& workload, Lifetime lifetime);
ContestantPtr makeSAXParser(Workload& workload, Lifetime lifetime);
ContestantPtr makeLibXML(Workload& workload);
/// Loads a tree and walks over it. It knows no namespaces.
ContestantPtr makePugixml(Workload& workload);
/// @}

/// \name Reading Fast Infoset
/// @{
ContestantPtr makeFastInfosetParser(Workload& workload, Tables tables, Input input, Lifetime lifetime);
/// With vector tables, reused, from memory, where another indexing limit was used than the writer's own.
ContestantPtr makeLimitReader(Workload& workload, int maxIndexedLength);
/// @}

/// The floor: events that are decoded already are handed over, with nothing but the attributes left to fill in.
ContestantPtr makeFloor(Workload& workload, EventStore::Attributes attributes);

/// \name Writing from decoded events, into memory but for one
/// @{
ContestantPtr makeFastInfosetWriter(Workload& workload, Tables tables);
ContestantPtr makeFastInfosetFileWriter(Workload& workload, TemporaryFile::Flushing flushing);
ContestantPtr makeLibXMLWriter(Workload& workload);
/// The least that writing text takes: names and values are copied and escaped, nothing is checked.
ContestantPtr makeEscaper(Workload& workload);
/// @}

/// \name Converting from memory to memory
/// @{
ContestantPtr makeToFISConverter(Workload& workload);
ContestantPtr makeToXMLConverter(Workload& workload);
/// @}

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_CONTESTANTS_H
