// SPDX-License-Identifier: MIT
#ifndef VESK_BENCHMARKS_ROWS_H
#define VESK_BENCHMARKS_ROWS_H

#include "Contestants.h"
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace Vesk::Benchmarks
{

/// A row of the report: a contestant and what it is called.
struct Row
{
    enum Group
    {
        TEXT_READER,
        READER,
        FLOOR,
        TEXT_WRITER,
        WRITER,
        CONVERTER
    };

    Group group;
    std::string name;
    std::string baseline; ///< the row of expat that it is compared with
    std::function<ContestantPtr(Workload&)> make;
};

const std::vector<Row>& rows();

/// The index of a row by its name.
std::size_t rowIndex(const std::string& name);

/// How fast one row should be, measured by another.
struct Goal
{
    enum Scope
    {
        DOCUMENTS, ///< items of one document
        FOLDERS    ///< items of many small documents
    };

    std::string work;
    std::string row;
    std::string reference;
    Scope scope;
    double atLeast; ///< the reference's cost by the row's cost
};

const std::vector<Goal>& goals();

} // namespace Vesk::Benchmarks

#endif // VESK_BENCHMARKS_ROWS_H
