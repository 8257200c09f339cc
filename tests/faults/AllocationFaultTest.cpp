// SPDX-License-Identifier: MIT
#include "EventRecorder.h"
#include "FaultDocuments.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/XMLWriter.h"
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <new>

// Every allocation of a few documents, there and back, fails in turn. This file replaces operator new, so it is a program
// of its own. Memory that is lost on the way is found by the address sanitizer.

namespace
{

/// Counts allocations, and lets one of them or all from one on fail.
struct AllocationFaults
{
    bool isOn = false;
    bool isLasting = false;
    unsigned long countdown = 0;
    bool happened = false;

    bool nextFails()
    {
        if (!isOn)
            return false;
        if (countdown > 0)
        {
            --countdown;
            return false;
        }
        if (happened && !isLasting)
            return false;
        happened = true;
        return true;
    }
};

AllocationFaults faults;

void* allocate(std::size_t size)
{
    return faults.nextFails() ? nullptr : std::malloc(size > 0 ? size : 1);
}

void* allocateOrThrow(std::size_t size)
{
    if (void* const memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size)
{
    return allocateOrThrow(size);
}
void* operator new[](std::size_t size)
{
    return allocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}

namespace Vesk::FastInfoset
{

namespace
{

/// Runs the action with the k-th allocation failing. Returns whether there was one; an action whose allocation failed may
/// end well all the same.
bool runWithFault(const std::function<void()>& action, unsigned long k, bool isLasting)
{
    faults = {true, isLasting, k, false};
    try
    {
        action();
    }
    catch (const std::bad_alloc&)
    {
    }
    catch (const Vesk::Exception&)
    {
    }
    faults.isOn = false;
    return faults.happened;
}

/// Expects only std::bad_alloc and the library's own exceptions, whatever allocation fails, and then the same result as
/// ever.
void expectSafe(const char* name, const std::function<std::string()>& action)
{
    SCOPED_TRACE(name);
    const std::string expected = action();
    for (const bool isLasting : {false, true})
    {
        unsigned long k = 0;
        while (runWithFault([&] { action(); }, k, isLasting))
            ++k;
        EXPECT_GT(k, 10u) << "hardly any allocation has failed";
        EXPECT_EQ(action(), expected);
    }
}

std::string eventsOf(FastInfosetParser& parser, const std::string& document)
{
    EventRecorder recorder;
    recorder.attachTo(parser);
    parser.parseMemoryNP(document.data(), document.size());
    return recorder.events();
}

} // namespace

TEST(AllocationFaultTest, ConversionsThereAndBack)
{
    expectSafe("to Fast Infoset", [] { return converted(faultText()); });

    const std::string document = converted(faultText());
    expectSafe("to XML text",
               [&]
               {
                   std::istringstream in(document);
                   std::ostringstream out;
                   Converter::convertToXML(in, out, 0);
                   return out.str();
               });
}

TEST(AllocationFaultTest, WritingTypedValues)
{
    expectSafe("typed values", typedDocument);
}

TEST(AllocationFaultTest, ParsersOfAllKinds)
{
    for (const std::string& document : {converted(faultText()), typedDocument()})
    {
        for (const auto tables :
             {DocumentVocabulary::VOC_VECTOR, DocumentVocabulary::VOC_MAP, DocumentVocabulary::VOC_HASH})
        {
            expectSafe("fresh parser",
                       [&]
                       {
                           FastInfosetParser parser(tables);
                           return eventsOf(parser, document);
                       });
            // What a failure leaves behind is gone with the next document.
            FastInfosetParser reused(tables);
            expectSafe("reused parser", [&] { return eventsOf(reused, document); });
        }
    }
}

// The parser keeps the identifiers for its locator.
TEST(AllocationFaultTest, ParserOfANamedStream)
{
    const std::string document = converted(faultText());
    expectSafe("named stream",
               [&]
               {
                   std::istringstream in(document);
                   XML::InputSource source(in);
                   source.setPublicId("a public identifier that takes memory of its own");
                   source.setSystemId("a system identifier that takes memory of its own");
                   FastInfosetParser parser;
                   EventRecorder recorder;
                   recorder.attachTo(parser);
                   parser.parse(&source);
                   return recorder.events();
               });
}

TEST(AllocationFaultTest, ParserDrivingAWriter)
{
    DocumentVocabulary vocabulary(DocumentVocabulary::VOC_MAP);
    bool found = false;
    for (int i = 0; i < 40; ++i)
        vocabulary.vocabulary(DocumentVocabulary::LOCAL_NAME)
            .index("a name that takes memory " + std::to_string(i), found);
    vocabulary.restrictedAlphabets().add("0123456789abcdef");
    std::ostringstream out;
    {
        FastInfosetWriter writer(out, true, vocabulary);
        writeTypedDocument(writer);
    }
    const std::string document = out.str();
    expectSafe("parser and writer",
               [&]
               {
                   std::ostringstream copy;
                   {
                       FastInfosetParser parser(DocumentVocabulary::VOC_MAP);
                       FastInfosetWriter writer(copy, true, DocumentVocabulary::VOC_MAP);
                       parser.initialize(&writer);
                       parser.parseMemoryNP(document.data(), document.size());
                   }
                   return copy.str();
               });
}

} // namespace Vesk::FastInfoset
