// SPDX-License-Identifier: MIT
#include "Machine.h"
#include <ctime>
#include <expat.h>
#include <fstream>
#include <libxml/xmlversion.h>
#include <pugixml.hpp>
#include <sys/utsname.h>
#include <thread>
#include <zlib.h>
#include <zstd.h>

namespace Vesk::Benchmarks
{

namespace
{

#if defined(__clang__)
const char COMPILER[] = "Clang " __clang_version__;
#elif defined(__GNUC__)
const char COMPILER[] = "GCC " __VERSION__;
#else
const char COMPILER[] = "an unknown compiler";
#endif

struct Processor
{
    std::string model;
    bool isVirtual = false;
};

Processor processor()
{
    Processor result;
    std::ifstream information("/proc/cpuinfo");
    for (std::string line; std::getline(information, line);)
    {
        const std::size_t colon = line.find(": ");
        if (colon == std::string::npos)
            continue;
        if (line.compare(0, 10, "model name") == 0)
            result.model = line.substr(colon + 2);
        if (line.compare(0, 5, "flags") == 0)
            result.isVirtual = line.find(" hypervisor") != std::string::npos;
    }
    return result;
}

// 10206 is 1.2.6.
std::string dotted(int version)
{
    return std::to_string(version / 10000) + "." + std::to_string(version / 100 % 100) + "." +
           std::to_string(version % 100);
}

} // namespace

std::string machineClass()
{
    utsname system{};
    uname(&system);
    const Processor cpu = processor();
    std::string text = system.machine;
    if (!cpu.model.empty())
        text += ", " + cpu.model;
    text += ", " + std::to_string(std::thread::hardware_concurrency()) + " cores";
    if (cpu.isVirtual)
        text += " of a virtual machine";
    return text + ", " + system.sysname + ", " + COMPILER + ", " VESK_BUILD_TYPE;
}

std::string libraryVersions()
{
    const XML_Expat_Version expat = XML_ExpatVersionInfo();
    return "expat " + std::to_string(expat.major) + "." + std::to_string(expat.minor) + "." +
           std::to_string(expat.micro) + ", libxml2 " LIBXML_DOTTED_VERSION ", pugixml " +
           std::to_string(PUGIXML_VERSION / 1000) + "." + std::to_string(PUGIXML_VERSION / 10 % 100) + ", zlib " +
           zlibVersion() + ", zstd " + dotted(static_cast<int>(ZSTD_versionNumber()));
}

std::string today()
{
    const std::time_t now = std::time(nullptr);
    char text[sizeof "0000-00-00"];
    std::strftime(text, sizeof text, "%Y-%m-%d", std::localtime(&now));
    return text;
}

} // namespace Vesk::Benchmarks
