// SPDX-License-Identifier: MIT
#include "StatisticsJSON.h"
#include "FormatNames.h"
#include "JSONWriter.h"
#include <sstream>

namespace Vesk::Tool
{

namespace
{

using Table = FastInfoset::StructureObserver::Table;

constexpr std::size_t EXPENSES = 10;

void add(JSONWriter& json, const char* label, const std::string& name, const DocumentStatistics::Cost& cost)
{
    json.beginObject();
    json.member(label, name).member("count", cost.count).member("bits", cost.bits);
    json.endObject();
}

void addTables(JSONWriter& json, const DocumentStatistics& statistics)
{
    json.key("tables").beginArray();
    for (std::size_t i = 0; i < DocumentStatistics::TABLE_COUNT; ++i)
    {
        const auto table = static_cast<Table>(i);
        const DocumentStatistics::TableUse use = statistics.table(table);
        if (use.entries == 0 && use.hits == 0)
            continue;
        json.beginObject();
        json.member("table", nameOf(table)).member("entries", use.entries).member("unused", use.unused);
        json.member("indexes", use.hits).member("savedBits", use.savedBits);
        json.endObject();
    }
    json.endArray();
}

void addExpenses(JSONWriter& json, const char* key, const std::vector<DocumentStatistics::Expense>& expenses)
{
    json.key(key).beginArray();
    for (const DocumentStatistics::Expense& expense : expenses)
    {
        json.beginObject();
        json.member("table", nameOf(expense.table)).member("text", expense.text);
        json.member("count", expense.cost.count).member("bits", expense.cost.bits);
        json.endObject();
    }
    json.endArray();
}

} // namespace

std::string statisticsJSON(const std::string& file, const DocumentStatistics& statistics)
{
    std::ostringstream text;
    JSONWriter json(text);
    json.beginObject();
    json.member("file", file).member("bits", statistics.bits());
    json.key("items").beginArray();
    for (int i = 0; i < DocumentStatistics::ITEM_COUNT; ++i)
    {
        const auto item = static_cast<DocumentStatistics::Item>(i);
        if (statistics.item(item).bits > 0)
            add(json, "item", DocumentStatistics::nameOf(item), statistics.item(item));
    }
    json.endArray();
    addTables(json, statistics);
    json.key("literals").beginArray();
    for (const auto& [form, cost] : statistics.forms())
        add(json, "form", form, cost);
    json.endArray();
    addExpenses(json, "names", statistics.names(EXPENSES));
    addExpenses(json, "strings", statistics.strings(EXPENSES));
    json.endObject();
    return text.str();
}

} // namespace Vesk::Tool
