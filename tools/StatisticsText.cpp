// SPDX-License-Identifier: MIT
#include "StatisticsText.h"
#include "FormatNames.h"
#include "Quoted.h"
#include <algorithm>

namespace Vesk::Tool
{

namespace
{

using Table = FastInfoset::StructureObserver::Table;

constexpr std::size_t LABEL_COLUMNS = 26;
constexpr std::size_t NUMBER_COLUMNS = 12;
constexpr unsigned long BAR_COLUMNS = 20; // for the whole
constexpr std::size_t EXPENSES = 10;
constexpr std::size_t SHOWN_CHARACTERS = 60; // of a name or string

std::string padded(std::string text, std::size_t columns)
{
    text.resize(std::max(columns, text.size()), ' ');
    return text;
}

std::string rightAligned(const std::string& text, std::size_t columns)
{
    return std::string(columns > text.size() ? columns - text.size() : 0, ' ') + text;
}

// "1,234,567"
std::string grouped(long number)
{
    std::string digits = std::to_string(number);
    const std::size_t first = number < 0 ? 1 : 0;
    for (std::size_t place = digits.size(); place > first + 3;)
    {
        place -= 3;
        digits.insert(place, ",");
    }
    return digits;
}

std::string number(long value)
{
    return rightAligned(grouped(value), NUMBER_COLUMNS);
}

// Half an octet counts as one.
std::string octets(long bits)
{
    return number((bits + (bits < 0 ? -4 : 4)) / 8);
}

std::string percent(unsigned long part, unsigned long whole)
{
    const unsigned long tenths = whole == 0 ? 0 : (1000 * part + whole / 2) / whole;
    return rightAligned(std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " %", 9);
}

std::string bar(unsigned long part, unsigned long whole)
{
    const unsigned long columns = whole == 0 ? 0 : (BAR_COLUMNS * part + whole / 2) / whole;
    return std::string(columns, '#');
}

} // namespace

StatisticsText::StatisticsText(const Terminal& terminal)
    : _terminal(terminal)
{
}

std::string StatisticsText::of(const std::string& file, const DocumentStatistics& statistics)
{
    _output.str("");
    _output << _terminal.styled(Terminal::BOLD, shown(file, ALL_CHARACTERS)) << ": "
            << grouped(static_cast<long>(statistics.bits() / 8)) << " octets\n";
    writeItems(statistics);
    writeTables(statistics);
    writeForms(statistics);
    writeExpenses("Costliest names", statistics.names(EXPENSES), statistics.bits());
    writeExpenses("Costliest strings", statistics.strings(EXPENSES), statistics.bits());
    return _output.str();
}

void StatisticsText::writeItems(const DocumentStatistics& statistics)
{
    writeTitle("Items", rightAligned("count", NUMBER_COLUMNS) + rightAligned("octets", NUMBER_COLUMNS) + "    share");
    for (int item = 0; item < DocumentStatistics::ITEM_COUNT; ++item)
    {
        const auto& cost = statistics.item(static_cast<DocumentStatistics::Item>(item));
        if (cost.bits > 0)
            writeShare(DocumentStatistics::nameOf(static_cast<DocumentStatistics::Item>(item)), cost,
                       statistics.bits());
    }
}

void StatisticsText::writeTables(const DocumentStatistics& statistics)
{
    writeTitle("Tables", rightAligned("entries", NUMBER_COLUMNS) + rightAligned("not used", NUMBER_COLUMNS) +
                             rightAligned("indexes", NUMBER_COLUMNS) + rightAligned("saved", NUMBER_COLUMNS));
    for (std::size_t table = 0; table < DocumentStatistics::TABLE_COUNT; ++table)
    {
        const DocumentStatistics::TableUse use = statistics.table(static_cast<Table>(table));
        if (use.entries > 0 || use.hits > 0)
        {
            _output << "  " << padded(nameOf(static_cast<Table>(table)), LABEL_COLUMNS)
                    << number(static_cast<long>(use.entries)) << number(static_cast<long>(use.unused))
                    << number(static_cast<long>(use.hits)) << octets(use.savedBits) << '\n';
        }
    }
}

void StatisticsText::writeForms(const DocumentStatistics& statistics)
{
    writeTitle("Literals",
               rightAligned("count", NUMBER_COLUMNS) + rightAligned("octets", NUMBER_COLUMNS) + "    share");
    for (const auto& [form, cost] : statistics.forms())
        writeShare(form, cost, statistics.bits());
}

void StatisticsText::writeExpenses(const char* title, const std::vector<DocumentStatistics::Expense>& expenses,
                                   unsigned long allBits)
{
    if (expenses.empty())
        return;
    writeTitle(title, rightAligned("count", NUMBER_COLUMNS) + rightAligned("octets", NUMBER_COLUMNS) + "    share");
    for (const DocumentStatistics::Expense& expense : expenses)
        writeShare(nameOf(expense.table), expense.cost, allBits, quoted(expense.text, SHOWN_CHARACTERS));
}

void StatisticsText::writeTitle(const std::string& title, const std::string& columns)
{
    _output << '\n' << _terminal.styled(Terminal::BOLD, padded(title, LABEL_COLUMNS + 2)) << columns << '\n';
}

void StatisticsText::writeShare(const std::string& label, const DocumentStatistics::Cost& cost, unsigned long allBits,
                                const std::string& comment)
{
    const std::string bars = bar(cost.bits, allBits);
    _output << "  " << padded(label, LABEL_COLUMNS) << number(static_cast<long>(cost.count))
            << octets(static_cast<long>(cost.bits)) << percent(cost.bits, allBits);
    if (!bars.empty() || !comment.empty())
        _output << "  " << _terminal.styled(Terminal::CYAN, comment.empty() ? bars : padded(bars, BAR_COLUMNS));
    if (!comment.empty())
        _output << "  " << comment;
    _output << '\n';
}

} // namespace Vesk::Tool
