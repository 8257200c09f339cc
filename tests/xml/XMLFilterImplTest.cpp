// SPDX-License-Identifier: MIT
#include "Vesk/XML/XMLFilterImpl.h"
#include "EventRecorder.h"
#include "ExceptionMatcher.h"
#include "Vesk/XML/SAXParseException.h"
#include <fstream>
#include <gtest/gtest.h>

using namespace Vesk;
using namespace Vesk::XML;

TEST(XMLFilterImplTest, PassesEverythingOn)
{
    const std::string file = std::string(VESK_TEST_DATA) + "/doctype.xml";
    std::ifstream stream(file);
    const std::string expected = eventsOfXML(stream);

    SAXParser parser;
    XMLFilterImpl inner(&parser);
    XMLFilterImpl outer;
    outer.setParent(&inner);
    EXPECT_EQ(outer.getParent(), &inner);
    EventRecorder recorder;
    recorder.attachTo(outer);
    outer.parse(file);
    EXPECT_EQ(recorder.events(), expected);
}

TEST(XMLFilterImplTest, PassesErrorsOn)
{
    class Handler : public XMLFilterImpl
    {
    public:
        void fatalError(const SAXException&) override { ++errors; }
        int errors = 0;
    };
    SAXParser parser;
    XMLFilterImpl filter(&parser);
    Handler handler;
    filter.setErrorHandler(&handler);
    EXPECT_THROW(filter.parseMemoryNP("<a>", 3), SAXParseException);
    EXPECT_EQ(handler.errors, 1);
}

TEST(XMLFilterImplTest, NeedsAParent)
{
    XMLFilterImpl filter;
    EXPECT_THROW(filter.parse("file"), NullPointerException);
    EXPECT_THROW(filter.setFeature(XMLReader::FEATURE_NAMESPACES, true), NullPointerException);
}
