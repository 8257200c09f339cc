// SPDX-License-Identifier: MIT
#include "Vesk/URIStreamOpener.h"
#include "ExceptionMatcher.h"
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace Vesk
{

namespace
{

class URIStreamOpenerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        _directory = std::filesystem::temp_directory_path() / ("vesk-opener-" + std::to_string(getpid()));
        std::filesystem::create_directories(_directory);
        _file = (_directory / "a b.txt").string();
        std::ofstream(_file) << "content";
    }

    void TearDown() override { std::filesystem::remove_all(_directory); }

    static std::string readAll(const std::unique_ptr<std::istream>& stream)
    {
        return std::string(std::istreambuf_iterator<char>(*stream), std::istreambuf_iterator<char>());
    }

    std::string percentEncoded() const { return (_directory / "a%20b.txt").string(); }

    std::filesystem::path _directory;
    std::string _file;
    URIStreamOpener _opener;
};

std::unique_ptr<std::istream> openText(const URI& uri)
{
    return std::make_unique<std::istringstream>("<" + uri.getPath() + ">");
}

} // namespace

TEST_F(URIStreamOpenerTest, OpensPathsAndFileURIs)
{
    EXPECT_EQ(readAll(_opener.open(_file)), "content");
    EXPECT_EQ(readAll(_opener.open("file://" + percentEncoded())), "content");
    EXPECT_EQ(readAll(_opener.open("File:" + percentEncoded() + "?query#fragment")), "content");
    EXPECT_EQ(readAll(_opener.open("file://LOCALHOST" + percentEncoded())), "content");
    EXPECT_EQ(readAll(URIStreamOpener::defaultOpener().open(_file)), "content");
}

TEST_F(URIStreamOpenerTest, NamesTheMissingFile)
{
    const std::string missing = (_directory / "missing").string();
    EXPECT_VESK_THROW(_opener.open(missing), FileNotFoundException, "File not found: " + missing);
    EXPECT_VESK_THROW(_opener.open("file://" + missing), FileNotFoundException, "File not found: " + missing);
    EXPECT_VESK_THROW(_opener.open(percentEncoded()), FileNotFoundException, "File not found: " + percentEncoded());
    EXPECT_VESK_THROW(_opener.open(""), FileNotFoundException, "File not found: ");
}

TEST_F(URIStreamOpenerTest, ZeroOctetNeverHidesTheRestOfAName)
{
    EXPECT_THROW(_opener.open(_file + '\0' + ".xml"), FileNotFoundException);
    EXPECT_THROW(_opener.open("file://" + percentEncoded() + "%00.xml"), FileNotFoundException);
}

TEST_F(URIStreamOpenerTest, RefusesWhatIsNoReadableFile)
{
    const std::string directory = _directory.string();
    EXPECT_VESK_THROW(_opener.open(directory), IOException, "Not a regular file: " + directory);

    const std::string pipe = (_directory / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_VESK_THROW(_opener.open(pipe), IOException, "Not a regular file: " + pipe);

    const std::string below = _file + "/x";
    EXPECT_VESK_THROW(_opener.open(below), FileNotFoundException, "File not found: " + below);
    const std::string endless = (_directory / std::string(5000, 'x')).string();
    EXPECT_VESK_THROW(_opener.open(endless), IOException, "Cannot open file: " + endless);

    const std::string remote = "file://other.example.org" + percentEncoded();
    EXPECT_VESK_THROW(_opener.open(remote), IOException, "File on another host: " + remote);

    std::filesystem::permissions(_file, std::filesystem::perms::none);
    if (geteuid() != 0) // root reads everything
        EXPECT_VESK_THROW(_opener.open(_file), IOException, "Cannot open file: " + _file);
}

TEST_F(URIStreamOpenerTest, KnowsOnlyTheSchemesThatAreRegistered)
{
    EXPECT_VESK_THROW(_opener.open("http://www.example.org/a"), UnknownURISchemeException,
                      "Unknown URI scheme: http://www.example.org/a");
    _opener.registerStreamFactory("MEM", openText);
    EXPECT_EQ(readAll(_opener.open("mem:one")), "<one>");
    EXPECT_EQ(readAll(_opener.open("Mem:two")), "<two>");
    EXPECT_THROW(URIStreamOpener::defaultOpener().open("mem:one"), UnknownURISchemeException);

    _opener.unregisterStreamFactory("mem");
    _opener.unregisterStreamFactory("mem");
    EXPECT_THROW(_opener.open("mem:one"), UnknownURISchemeException);
}

TEST_F(URIStreamOpenerTest, FilesCanBeReplacedOrTakenAway)
{
    _opener.registerStreamFactory("file", openText);
    EXPECT_EQ(readAll(_opener.open("some/path")), "<some/path>");

    _opener.unregisterStreamFactory("file");
    EXPECT_VESK_THROW(_opener.open(_file), UnknownURISchemeException, "Unknown URI scheme: " + _file);
    EXPECT_THROW(_opener.open("file://" + percentEncoded()), UnknownURISchemeException);
}

TEST_F(URIStreamOpenerTest, FactoryMayUseTheOpener)
{
    _opener.registerStreamFactory("alias", [this](const URI&) { return _opener.open(_file); });
    EXPECT_EQ(readAll(_opener.open("alias:x")), "content");
}

TEST_F(URIStreamOpenerTest, OpensWhileSchemesComeAndGo)
{
    std::thread registrar(
        [this]
        {
            for (int i = 0; i < 2000; ++i)
            {
                _opener.registerStreamFactory("scheme" + std::to_string(i % 10), openText);
                _opener.unregisterStreamFactory("scheme" + std::to_string((i + 5) % 10));
            }
        });
    int failures = 0;
    for (int i = 0; i < 500; ++i)
        failures += readAll(_opener.open(_file)) != "content";
    registrar.join();
    EXPECT_EQ(failures, 0);
}

} // namespace Vesk
