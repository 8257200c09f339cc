// SPDX-License-Identifier: MIT
#ifndef VESK_TESTS_SAMPLEDOCUMENTS_H
#define VESK_TESTS_SAMPLEDOCUMENTS_H

#include "Octets.h"
#include <string>
#include <vector>

namespace Vesk::FastInfoset
{

/// Well-formed documents that together use every structure of the format, except external vocabularies, and the longer
/// forms of its codes.
inline std::vector<std::string> sampleDocuments()
{
    // Everything that a header can hold, and a body that refers to it.
    const std::string header = "'<?xml?>' E0 00 00 01 [0 1111111] 00 00 'i' 00 'd'"
                               "[000 01111] [11111111] 00 01 'ab' 00 00 'u' 00 00 'p' 00 00 'u' 01 00 'a' 00 'b'"
                               "00 00 't' 00 02 'sys' 01 00 '1' 10 '2' 00 '2' 00 [00 00 0 000] 'x'"
                               "00 [00 11 0000] [0000 0000] [0011 0 011] 00 00 00 05"
                               "00 [000000 11] 01 01 00 00 [000000 01] 01 01"
                               "C3 00 'n' 80 02 'pub' F0 D1 00 'e' 80 81 81 F0 04 'UTF-8' 01 42 '1.0'"
                               "C7 80 81 E1 80 80 F0 78 CF 81 81 CD 81 F0 [00 000000] [0 0000000] 80 F0"
                               "A0 E2 81 CB 82 80 81 [10 0 0 10 00] [001111 00] 50 FF";

    // Every form of string, and every algorithm.
    const std::string values = "E0 00 00 01 00 7C 00 'a' 78 00 'b' 40 '1' 78 00 'c' [0 1 01 0 011] 00 68 00 E4"
                               "78 00 'd' [0 0 10 0000] [0000 0 000] 29"
                               "78 00 'e' [0 1 11 0000] [0011 0 011] 00 00 00 05 78 00 'f' 82 F0"
                               "[10 0 1 01 01] 00 68 [10 0 0 10 00] [000000 00] 29 [10 0 1 11 00] [000000 01] 0A FF"
                               "8C [000001 10] 00 00 01 02 8C [000010 01] FF FE"
                               "8C [000011 10] 05 00 00 00 01 00 00 00 02 8C [000100 10] 05 00 00 00 00 00 00 01 02"
                               "8C [000101 00] 1A 8C [000110 10] 01 3F C0 00 00"
                               "8C [000111 10] 05 3F F8 00 00 00 00 00 00"
                               "8C [001000 10] 0D 00 11 22 33 44 55 66 77 88 99 AA BB CC DD EE FF"
                               "9C [001001 00] 'y' A0 E2 [0 1 11 0000] [1001 0 000] 'z' FF";

    // Elements and items in all orders, known names and values.
    const std::string structure = "E0 00 00 01 00 E2 41 'hi' E1 00 't' 40 'd' C6 02 'sys' F0"
                                  "38 CF 00 'p' 00 'u' CC F0 3F 81 81 00 'a' 7C 00 'b' 78 00 'c' 40 '1' FF"
                                  "[0 1 000001] [0 0000000] 80 F0 91 'hi' A0 E2 80 E1 80 81 F0"
                                  "38 CD 81 F0 [00 000000] 3C 00 'd' 3C 00 'e' FF FF 90 'x' F0";

    // Long names, values and texts, and an index of two octets.
    std::string lengths = octetsOf("E0 00 00 01 20 00 80 45");
    for (int name = '0'; name < '0' + 70; ++name)
        lengths += std::string(1, '\0') + static_cast<char>(name);
    lengths += octetsOf("7C [1 10 00000] [00000101] 78 [0 1000000] 05 '" + std::string(70, 'n') +
                        "' [0 0 00 1100] 00 00 00 23 '" + std::string(300, 'v') +
                        "' 78 00 'w' 48 01 '0123456789' F0"
                        "[10 0 0 00 11] 00 00 00 29 '" +
                        std::string(300, 't') + "' [10 0 1 00 10] 00 'abc' FF");

    return {octetsOf(header), octetsOf(values), octetsOf(structure), lengths};
}

} // namespace Vesk::FastInfoset

#endif // VESK_TESTS_SAMPLEDOCUMENTS_H
