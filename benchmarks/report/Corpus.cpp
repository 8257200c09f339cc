// SPDX-License-Identifier: MIT
#include "Corpus.h"
#include "ExpatTally.h"
#include "Vesk/Exception.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <utility>

namespace Vesk::Benchmarks
{

namespace
{

namespace fs = std::filesystem;

// The mean size of documents that are worth measuring together only.
constexpr std::size_t SMALL_OCTETS = 8192;

std::string contentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file)
        throw FileNotFoundException("Cannot read", path.string());
    return content;
}

Item itemOf(const fs::path& path)
{
    Item item{path.filename().string(), false, {contentOf(path)}};
    ExpatTally().parse(item.documents.front());
    return item;
}

void addFolder(const fs::path& folder, std::vector<Item>& items)
{
    std::vector<fs::path> entries{fs::directory_iterator(folder), fs::directory_iterator()};
    std::sort(entries.begin(), entries.end());
    std::vector<Item> found;
    Item together{fs::canonical(folder).filename().string() + "/", true, {}};
    std::size_t octetCount = 0;
    for (const fs::path& entry : entries)
    {
        if (fs::is_directory(entry))
            continue;
        try
        {
            found.push_back(itemOf(entry));
            together.documents.push_back(found.back().documents.front());
            octetCount += together.documents.back().size();
        }
        catch (const DataFormatException& exception)
        {
            std::cerr << "skipped " << entry.string() << ": " << exception.message() << '\n';
        }
    }
    if (found.size() > 1 && octetCount <= found.size() * SMALL_OCTETS)
        items.push_back(std::move(together));
    else
        std::move(found.begin(), found.end(), std::back_inserter(items));

    for (const fs::path& entry : entries)
    {
        if (fs::is_directory(entry))
            addFolder(entry, items);
    }
}

} // namespace

std::vector<Item> loadCorpus(const std::vector<std::string>& paths)
{
    std::vector<Item> items;
    for (const std::string& path : paths)
    {
        if (fs::is_directory(path))
            addFolder(path, items);
        else
            items.push_back(itemOf(path));
    }
    return items;
}

} // namespace Vesk::Benchmarks
