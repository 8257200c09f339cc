// SPDX-License-Identifier: MIT
//
// Reads documents on several threads, each with a parser of its own.
//
//   threads

#include "Vesk/FastInfoset/Converter.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/XMLFilterImpl.h"
#include <cstddef>
#include <exception>
#include <future>
#include <iostream>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

using Vesk::FastInfoset::Converter;
using Vesk::FastInfoset::FastInfosetParser;

namespace
{

class ElementCounter : public Vesk::XML::XMLFilterImpl
{
public:
    int count() const { return _count; }

    void startElement(const std::string&, const std::string&, const std::string&, const Vesk::XML::Attributes&) override
    {
        ++_count;
    }

private:
    int _count = 0;
};

// A parser is reused on its thread, which saves making it anew for each document.
int countElements(const std::vector<std::string>& documents, std::size_t first, std::size_t step)
{
    FastInfosetParser parser;
    ElementCounter counter;
    parser.setContentHandler(&counter);
    for (std::size_t i = first; i < documents.size(); i += step)
        parser.parseMemoryNP(documents[i].data(), documents[i].size());
    return counter.count();
}

int countOnThreads(const std::vector<std::string>& documents, std::size_t threads)
{
    std::vector<std::future<int>> counts;
    for (std::size_t i = 0; i < threads; ++i)
        counts.push_back(std::async(std::launch::async, [&, i] { return countElements(documents, i, threads); }));
    int count = 0;
    for (std::future<int>& part : counts)
        count += part.get(); // throws what the thread has thrown
    return count;
}

bool compare()
{
    std::vector<std::string> documents;
    int expected = 0;
    for (int i = 0; i < 100; ++i)
    {
        std::string text = "<list>";
        for (int element = 0; element < i; ++element)
            text += "<e/>";
        std::istringstream xml(text + "</list>");
        std::ostringstream fis;
        Converter::convertToFIS(xml, fis, 16, 0);
        documents.push_back(fis.str());
        expected += i + 1;
    }
    const int count = countOnThreads(documents, 4);
    std::cout << count << " elements\n";
    return count == expected;
}

} // namespace

int main()
{
    try
    {
        return compare() ? 0 : 1;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "threads: " << exception.what() << '\n';
        return 1;
    }
}
