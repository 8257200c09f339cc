// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_HOSTILEDOCUMENTS_H
#define VESK_BENCHMARKS_HOSTILEDOCUMENTS_H

#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// A kind of document made to cost as much as it can.
struct HostileDocument
{
    const char* name;
    Vesk::FastInfoset::DocumentVocabulary::VocabularyImpl tables; // those that suffer most
    /// Makes one of about that many octets. Parsing it may end in an exception at its end.
    std::function<std::string(std::size_t octetCount)> document;
    std::size_t octetCount; // what to begin with
};

std::vector<HostileDocument> hostileDocuments();

#endif // VESK_BENCHMARKS_HOSTILEDOCUMENTS_H
