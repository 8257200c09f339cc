// SPDX-License-Identifier: MIT
#include "StatisticsText.h"
#include "Columns.h"
#include "FormatNames.h"
#include "Quoted.h"
#include <algorithm>
#include <initializer_list>

namespace Vesk::Tool
{

namespace
{

using Table = FastInfoset::StructureObserver::Table;

constexpr std::size_t LABEL_COLUMNS = 26;
constexpr std::size_t TABLE_COLUMNS = 18; // for what the costliest strings are
constexpr std::size_t NUMBER_COLUMNS = 12;
constexpr std::size_t SHARE_COLUMNS = 9;
constexpr std::size_t BAR_COLUMNS = 20;
constexpr std::size_t SHORT_BAR_COLUMNS = 10; // with a text behind it
constexpr std::size_t EXPENSES = 10;

// Characters of a name or string: what a terminal has room for, quotation marks included, but enough to recognise it.
constexpr int MIN_CHARACTERS = 20;
constexpr int MAX_CHARACTERS = 60;
constexpr int COLUMNS_BEFORE_TEXT =
    2 + TABLE_COLUMNS + 2 * NUMBER_COLUMNS + SHARE_COLUMNS + 2 + SHORT_BAR_COLUMNS + 2 + 5;

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
    return rightAligned(std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " %", SHARE_COLUMNS);
}

// The longest bar of a list stands for the largest of its shares.
std::string bar(unsigned long part, unsigned long largest, std::size_t columns)
{
    return std::string(largest == 0 ? 0 : (columns * part + largest / 2) / largest, '#');
}

std::string titles(std::initializer_list<const char*> columns)
{
    std::string line;
    for (const char* const column : columns)
        line += rightAligned(column, NUMBER_COLUMNS);
    return line;
}

const std::string SHARE_TITLES = titles({"count", "octets"}) + rightAligned("share", SHARE_COLUMNS);

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
    using Item = DocumentStatistics::Item;
    unsigned long largest = 0;
    for (int item = 0; item < DocumentStatistics::ITEM_COUNT; ++item)
        largest = std::max(largest, statistics.item(static_cast<Item>(item)).bits);
    writeTitle(padded("Items", LABEL_COLUMNS), SHARE_TITLES);
    for (int item = 0; item < DocumentStatistics::ITEM_COUNT; ++item)
    {
        const DocumentStatistics::Cost& cost = statistics.item(static_cast<Item>(item));
        if (cost.bits > 0)
            writeShare(padded(DocumentStatistics::nameOf(static_cast<Item>(item)), LABEL_COLUMNS), cost,
                       statistics.bits(), bar(cost.bits, largest, BAR_COLUMNS));
    }
}

void StatisticsText::writeTables(const DocumentStatistics& statistics)
{
    writeTitle(padded("Tables", LABEL_COLUMNS), titles({"entries", "not used", "indexes", "saved"}));
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
    const auto forms = statistics.forms(); // the largest is the first
    if (forms.empty())
        return;
    writeTitle(padded("Literals", LABEL_COLUMNS), SHARE_TITLES);
    for (const auto& [form, cost] : forms)
        writeShare(padded(form, LABEL_COLUMNS), cost, statistics.bits(),
                   bar(cost.bits, forms.front().second.bits, BAR_COLUMNS));
}

void StatisticsText::writeExpenses(const char* title, const std::vector<DocumentStatistics::Expense>& expenses,
                                   unsigned long allBits)
{
    if (expenses.empty())
        return;
    const int characters = _terminal.isTerminal()
                               ? std::clamp(_terminal.width() - COLUMNS_BEFORE_TEXT, MIN_CHARACTERS, MAX_CHARACTERS)
                               : MAX_CHARACTERS;
    writeTitle(padded(title, TABLE_COLUMNS), SHARE_TITLES);
    for (const DocumentStatistics::Expense& expense : expenses)
        writeShare(padded(nameOf(expense.table), TABLE_COLUMNS), expense.cost, allBits,
                   padded(bar(expense.cost.bits, expenses.front().cost.bits, SHORT_BAR_COLUMNS), SHORT_BAR_COLUMNS),
                   quoted(expense.text, static_cast<std::size_t>(characters)));
}

void StatisticsText::writeTitle(const std::string& title, const std::string& columns)
{
    _output << '\n' << _terminal.styled(Terminal::BOLD, title) << "  " << columns << '\n';
}

void StatisticsText::writeShare(const std::string& label, const DocumentStatistics::Cost& cost, unsigned long allBits,
                                const std::string& bar, const std::string& text)
{
    _output << "  " << label << number(static_cast<long>(cost.count)) << octets(static_cast<long>(cost.bits))
            << percent(cost.bits, allBits) << "  " << _terminal.styled(Terminal::CYAN, bar);
    if (!text.empty())
        _output << "  " << text;
    _output << '\n';
}

} // namespace Vesk::Tool
