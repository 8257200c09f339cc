// SPDX-License-Identifier: MIT
#include "Vesk/XML/NamespaceSupport.h"
#include "Vesk/Exception.h"
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace Vesk;
using namespace Vesk::XML;

namespace
{
/// The plainest form of what NamespaceSupport does.
class NamespaceModel
{
public:
    void pushContext() { _contexts.emplace_back(); }
    void popContext() { _contexts.pop_back(); }
    void declarePrefix(const std::string& prefix, const std::string& uri)
    {
        if (prefix != "xml")
            _contexts.back()[prefix] = uri;
    }
    void undeclarePrefix(const std::string& prefix) { _contexts.back().erase(prefix); }
    void reset() { _contexts.assign(1, {}); }

    const std::map<std::string, std::string>& declared() const { return _contexts.back(); }
    std::size_t depth() const { return _contexts.size(); }

    std::string uri(const std::string& prefix) const
    {
        if (prefix == "xml")
            return NamespaceSupport::XML_NAMESPACE;
        for (auto context = _contexts.rbegin(); context != _contexts.rend(); ++context)
        {
            const auto entry = context->find(prefix);
            if (entry != context->end())
                return entry->second;
        }
        return "(none)";
    }

    std::string prefix(const std::string& uri, bool isAttribute) const
    {
        for (auto context = _contexts.rbegin(); context != _contexts.rend(); ++context)
        {
            for (const auto& entry : *context)
            {
                const bool counts = entry.second == uri && this->uri(entry.first) == uri;
                if (counts && !(isAttribute && entry.first.empty()))
                    return entry.first;
            }
        }
        return uri == NamespaceSupport::XML_NAMESPACE ? "xml" : "(none)";
    }

private:
    std::vector<std::map<std::string, std::string>> _contexts{1};
};

std::string orNone(const std::string* text)
{
    return text ? *text : "(none)";
}

const std::string PREFIXES[] = {"", "a", "b", "c", "ab", "xml", "z"};
const std::string URIS[] = {"", "u:1", "u:2", "u:3", "u:4"};

void expectEqual(const NamespaceSupport& support, const NamespaceModel& model)
{
    for (const std::string& prefix : PREFIXES)
    {
        EXPECT_EQ(orNone(support.findURI(prefix)), model.uri(prefix)) << prefix;
        EXPECT_EQ(support.declaresPrefix(prefix), model.declared().count(prefix) == 1) << prefix;
    }
    for (const std::string& uri : URIS)
    {
        EXPECT_EQ(orNone(support.findPrefix(uri)), model.prefix(uri, false)) << uri;
        EXPECT_EQ(orNone(support.findAttributePrefix(uri)), model.prefix(uri, true)) << uri;
        EXPECT_EQ(support.isMapped(uri), model.prefix(uri, false) != "(none)") << uri;
    }
    std::map<std::string, std::string> declared;
    for (std::size_t i = 0; i < support.declaredCount(); ++i)
        declared[support.declaredPrefix(i)] = support.declaredURI(i);
    EXPECT_EQ(declared, model.declared());
    EXPECT_EQ(support.declaredCount(), model.declared().size());
}
} // namespace

TEST(NamespaceSupportTest, BehavesLikeThePlainModel)
{
    const unsigned int seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto any = [&random](const auto& choices)
    {
        return choices[random() % std::size(choices)];
    };

    NamespaceSupport support;
    NamespaceModel model;
    for (int step = 0; step < 20000 && !testing::Test::HasFailure(); ++step)
    {
        const std::string prefix = any(PREFIXES);
        const std::string uri = any(URIS);
        switch (random() % 16)
        {
        case 0:
        case 1:
        case 2:
            support.pushContext();
            model.pushContext();
            break;
        case 3:
        case 4:
        case 5:
            if (model.depth() > 1)
            {
                support.popContext();
                model.popContext();
            }
            break;
        case 6:
        case 7:
            support.undeclarePrefix(prefix);
            model.undeclarePrefix(prefix);
            break;
        case 8:
            if (random() % 100 == 0)
            {
                support.reset();
                model.reset();
            }
            break;
        default:
            support.declarePrefix(prefix, uri);
            model.declarePrefix(prefix, uri);
        }
        expectEqual(support, model);
    }
}

TEST(NamespaceSupportTest, XmlIsAlwaysMapped)
{
    NamespaceSupport support;
    EXPECT_EQ(support.getURI("xml"), "http://www.w3.org/XML/1998/namespace");
    EXPECT_EQ(support.getPrefix(NamespaceSupport::XML_NAMESPACE), "xml");
    EXPECT_TRUE(support.isMapped(NamespaceSupport::XML_NAMESPACE));
    EXPECT_EQ(support.declaredCount(), 0u);
    support.undeclarePrefix("xml");
    support.reset();
    EXPECT_EQ(support.getURI("xml"), NamespaceSupport::XML_NAMESPACE);
}

TEST(NamespaceSupportTest, WhatIsNotMappedIsEmpty)
{
    const NamespaceSupport support;
    EXPECT_EQ(support.getURI("p"), "");
    EXPECT_EQ(support.getPrefix("u"), "");
    EXPECT_EQ(support.findURI(""), nullptr);
    EXPECT_FALSE(support.isMapped("u"));
}

TEST(NamespaceSupportTest, ListsThePrefixesOfTheCurrentContextOnly)
{
    NamespaceSupport support;
    support.declarePrefix("outer", "u");
    support.pushContext();
    NamespaceSupport::PrefixSet prefixes = {"left over"};
    support.getDeclaredPrefixes(prefixes);
    EXPECT_TRUE(prefixes.empty());
    support.declarePrefix("b", "u");
    support.declarePrefix("a", "v");
    support.getDeclaredPrefixes(prefixes);
    EXPECT_EQ(prefixes, NamespaceSupport::PrefixSet({"a", "b"}));
}

TEST(NamespaceSupportTest, TheOutermostContextStays)
{
    NamespaceSupport support;
    EXPECT_THROW(support.popContext(), AssertionViolationException);
    support.declarePrefix("p", "u");
    EXPECT_THROW(support.popContext(), AssertionViolationException);
    EXPECT_EQ(support.getURI("p"), "u");
}

TEST(NamespaceSupportTest, ReferencesOutliveOtherDeclarations)
{
    NamespaceSupport support;
    support.declarePrefix("p", "u");
    const std::string* const uri = support.findURI("p");
    const std::string* const prefix = support.findPrefix("u");
    for (int i = 0; i < 1000; ++i)
    {
        support.pushContext();
        support.declarePrefix("p" + std::to_string(i), "u" + std::to_string(i));
    }
    EXPECT_EQ(support.findURI("p"), uri);
    EXPECT_EQ(support.findPrefix("u"), prefix);
    EXPECT_EQ(*uri, "u");
    EXPECT_EQ(*prefix, "p");
}

// The number of operations is what a hostile document can cause. If their cost grew with depth or number of
// declarations, these tests would not end.
TEST(NamespaceSupportTest, DepthCostsNothing)
{
    constexpr int DEPTH = 1000000;
    NamespaceSupport support;
    support.declarePrefix("p", "u");
    for (int i = 0; i < DEPTH; ++i)
    {
        support.pushContext();
        ASSERT_TRUE(support.findURI("p") && support.findPrefix("u") && !support.findPrefix("v"));
    }
    for (int i = 0; i < DEPTH; ++i)
        support.popContext();
    EXPECT_THROW(support.popContext(), AssertionViolationException);
}

TEST(NamespaceSupportTest, ManyPrefixesOfOneNamespaceStayFast)
{
    constexpr int COUNT = 200000;
    NamespaceSupport support;
    support.pushContext();
    for (int i = COUNT; i > 0; --i) // every prefix is preferred to those before
        support.declarePrefix(std::to_string(i), "u");
    EXPECT_EQ(support.getPrefix("u"), "1");
    EXPECT_EQ(support.declaredCount(), static_cast<std::size_t>(COUNT));
    for (int i = 1; i <= COUNT / 2; ++i)
        support.undeclarePrefix(std::to_string(i));
    EXPECT_EQ(support.getPrefix("u"), std::to_string(COUNT / 2 + 1));
    support.popContext();
    EXPECT_FALSE(support.isMapped("u"));
}

TEST(NamespaceSupportTest, APrefixDeclaredAtEveryLevelComesBackLevelByLevel)
{
    constexpr int DEPTH = 100000;
    NamespaceSupport support;
    for (int i = 0; i < DEPTH; ++i)
    {
        support.pushContext();
        support.declarePrefix("p", std::to_string(i));
    }
    for (int i = DEPTH; i-- > 0;)
    {
        ASSERT_EQ(support.getURI("p"), std::to_string(i));
        ASSERT_EQ(support.getPrefix(std::to_string(i)), "p");
        support.popContext();
        ASSERT_FALSE(support.isMapped(std::to_string(i)));
    }
}
