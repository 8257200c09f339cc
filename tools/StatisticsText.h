// SPDX-License-Identifier: MIT
#ifndef VESKFI_STATISTICSTEXT_H
#define VESKFI_STATISTICSTEXT_H

#include "DocumentStatistics.h"
#include "Terminal.h"
#include <sstream>
#include <string>
#include <vector>

namespace Vesk::Tool
{

/// Shows statistics as tables for people.
class StatisticsText
{
public:
    /// The terminal is where the text will be shown.
    explicit StatisticsText(const Terminal& terminal);

    std::string of(const std::string& file, const DocumentStatistics& statistics);

private:
    void writeItems(const DocumentStatistics& statistics);
    void writeTables(const DocumentStatistics& statistics);
    void writeForms(const DocumentStatistics& statistics);
    void writeExpenses(const char* title, const std::vector<DocumentStatistics::Expense>& expenses,
                       unsigned long allBits);
    void writeTitle(const std::string& title, const std::string& columns);
    void writeShare(const std::string& label, const DocumentStatistics::Cost& cost, unsigned long allBits,
                    const std::string& bar, const std::string& text = std::string());

    const Terminal _terminal;
    std::ostringstream _output;
};

} // namespace Vesk::Tool

#endif // VESKFI_STATISTICSTEXT_H
