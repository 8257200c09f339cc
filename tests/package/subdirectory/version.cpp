// SPDX-License-Identifier: MIT
//
// Prints the version of the libraries, once they have shown that they are there.

#include "Vesk/version.h"
#include "Vesk/NumberFormatter.h"
#include <iostream>

static_assert(VESK_VERSION_NUMBER >= VESK_MAKE_VERSION(1, 0, 0));

int main()
{
    if (Vesk::NumberFormatter::format(0.5) != "0.5")
        return 1;
    std::cout << VESK_VERSION << '\n';
}
