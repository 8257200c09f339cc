// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_CORPUS_H
#define VESK_BENCHMARKS_CORPUS_H

#include <string>
#include <vector>

namespace Vesk::Benchmarks
{

/// What is measured as one: a document, or a folder of small documents that are taken in turn.
struct Item
{
    std::string name;
    bool isFolder = false;
    std::vector<std::string> documents; ///< XML texts
};

/// Loads documents from files and folders. A folder whose documents are small is one item, any other an item for each
/// document; folders in folders likewise. What is no well-formed XML is skipped in folders, with a remark on standard
/// error, and throws an exception where it is named itself. So does a path at which there is nothing.
std::vector<Item> loadCorpus(const std::vector<std::string>& paths);

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_CORPUS_H
