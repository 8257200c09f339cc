// SPDX-License-Identifier: MIT
#include "FaultDocuments.h"
#include "TestStreams.h"
#include "Vesk/Exception.h"
#include "Vesk/FastInfoset/FastInfosetParser.h"
#include "Vesk/XML/InputSource.h"
#include "Vesk/XML/XMLWriter.h"
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

// Streams that fail at every place of a conversion, in both directions. Conversions to Fast Infoset go through the XML
// parser's callbacks, which are those of a C library.

namespace Vesk::FastInfoset
{

namespace
{

/// Takes at most so many octets and so many flushes; then it fails, by its state or by an exception of its own.
class FailingOutputStream : public std::ostream
{
public:
    enum Failure
    {
        STATE,
        EXCEPTION
    };

    FailingOutputStream(Failure kind, std::size_t octetLimit, int flushLimit)
        : std::ostream(nullptr),
          _buffer(octetLimit, flushLimit)
    {
        rdbuf(&_buffer);
        if (kind == EXCEPTION)
            exceptions(std::ios::badbit);
    }

    const std::string& octets() const { return _buffer.octets; }
    int flushes() const { return _buffer.flushes; }
    int callsAfterFailure() const { return _buffer.callsAfterFailure; }

private:
    struct Buffer : public std::streambuf
    {
        Buffer(std::size_t octetCount, int flushCount)
            : octetLimit(octetCount),
              flushLimit(flushCount)
        {
        }

        std::streamsize xsputn(const char* data, std::streamsize size) override
        {
            callsAfterFailure += failed ? 1 : 0;
            const std::size_t count = std::min(static_cast<std::size_t>(size), octetLimit - octets.size());
            octets.append(data, count);
            failed = failed || count < static_cast<std::size_t>(size);
            return static_cast<std::streamsize>(count);
        }
        int_type overflow(int_type octet) override
        {
            const char value = traits_type::to_char_type(octet);
            return xsputn(&value, 1) == 1 ? octet : traits_type::eof();
        }
        int sync() override
        {
            callsAfterFailure += failed ? 1 : 0;
            failed = failed || flushes == flushLimit;
            ++flushes;
            return failed ? -1 : 0;
        }

        const std::size_t octetLimit;
        const int flushLimit;
        std::string octets;
        int flushes = 0;
        bool failed = false;
        int callsAfterFailure = 0;
    };

    Buffer _buffer;
};

using Conversion = std::function<void(std::istream&, std::ostream&)>;

struct ConversionCase
{
    const char* name;
    std::string input;
    Conversion convert;
};

std::vector<ConversionCase> conversions()
{
    const auto toFIS = [](std::istream& in, std::ostream& out)
    {
        Converter::convertToFIS(in, out, 16, 0);
    };
    const auto toXML = [](std::istream& in, std::ostream& out)
    {
        Converter::convertToXML(in, out, XML::XMLWriter::WRITE_XML_DECLARATION);
    };
    const auto toFISAgain = [](std::istream& in, std::ostream& out)
    {
        FastInfosetParser parser(DocumentVocabulary::VOC_MAP);
        FastInfosetWriter writer(out, true, DocumentVocabulary::VOC_MAP);
        parser.initialize(&writer);
        XML::InputSource source(in);
        parser.parse(&source);
    };
    return {{"to Fast Infoset", faultText(), toFIS},
            {"to XML text", converted(faultText()), toXML},
            {"typed values to XML text", typedDocument(), toXML},
            {"to Fast Infoset again", converted(faultText()), toFISAgain},
            {"typed values to Fast Infoset again", typedDocument(), toFISAgain}};
}

void expectFailure(const ConversionCase& row, FailingOutputStream& out, const std::string& complete)
{
    std::istringstream in(row.input);
    try
    {
        row.convert(in, out);
        ADD_FAILURE() << "a failed stream goes unnoticed";
    }
    catch (const Vesk::Exception&)
    {
    }
    catch (const std::ios_base::failure&)
    {
    }
    EXPECT_EQ(complete.compare(0, out.octets().size(), out.octets()), 0) << "other octets than without a failure";
    EXPECT_EQ(out.callsAfterFailure(), 0);
}

} // namespace

TEST(ConversionFaultTest, OutputFailsAfterAnyNumberOfOctets)
{
    for (const ConversionCase& row : conversions())
    {
        std::istringstream in(row.input);
        std::ostringstream out;
        row.convert(in, out);
        for (const auto failure : {FailingOutputStream::STATE, FailingOutputStream::EXCEPTION})
        {
            for (std::size_t limit = 0; limit < out.str().size(); ++limit)
            {
                SCOPED_TRACE(std::string(row.name) + ", " + std::to_string(limit) + " octets");
                FailingOutputStream failing(failure, limit, -1);
                expectFailure(row, failing, out.str());
                if (HasFailure())
                    return;
            }
        }
    }
}

TEST(ConversionFaultTest, OutputFailsInAnyFlush)
{
    for (const ConversionCase& row : conversions())
    {
        std::istringstream in(row.input);
        FailingOutputStream good(FailingOutputStream::STATE, std::string::npos, -1);
        row.convert(in, good);
        for (const auto failure : {FailingOutputStream::STATE, FailingOutputStream::EXCEPTION})
        {
            // The last flush may be that of a destructor, which reports instead of throwing.
            for (int limit = 0; limit < good.flushes() - 1; ++limit)
            {
                SCOPED_TRACE(std::string(row.name) + ", flush " + std::to_string(limit));
                FailingOutputStream failing(failure, std::string::npos, limit);
                expectFailure(row, failing, good.octets());
                if (HasFailure())
                    return;
            }
        }
    }
}

TEST(ConversionFaultTest, InputFailsAfterAnyNumberOfOctets)
{
    for (const ConversionCase& row : conversions())
    {
        for (const auto end : {BlockInputStream::ENDS, BlockInputStream::THROWS})
        {
            for (std::size_t size = 0; size < row.input.size(); ++size)
            {
                SCOPED_TRACE(std::string(row.name) + ", " + std::to_string(size) + " octets");
                // The text is complete where its root element is.
                const bool isComplete = row.input.compare(0, size, faultText(), 0, size) == 0 &&
                                        size >= faultText().find("</p:root>") + 9 && row.input == faultText();
                if (isComplete && end == BlockInputStream::ENDS)
                    continue;
                BlockInputStream in(row.input.substr(0, size), 1 + size % 5, end);
                std::ostringstream out;
                EXPECT_THROW(row.convert(in, out), Vesk::Exception);
                if (HasFailure())
                    return;
            }
        }
    }
}

} // namespace Vesk::FastInfoset
