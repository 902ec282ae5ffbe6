#pragma once

#include <string>
#include <vector>

namespace k4ctl {

/// Rows of text in aligned columns, for a terminal. Cells may hold any text; it is escaped.
class Table {
 public:
    enum class Align { Left, Right };

    struct Column {
        std::string title;
        Align align = Align::Left;
    };

    /// Without a title in any column the table has no title line.
    explicit Table(std::vector<Column> columns);

    /// Adds a row. Missing cells are empty, and cells beyond the columns are dropped.
    void Add(std::vector<std::string> cells);

    /// Whether it has no row.
    bool IsEmpty() const { return m_rows.empty(); }

    /// The whole table: columns two blanks apart, a newline behind each line, no blanks before it.
    std::string Text() const;

 private:
    std::string Line(const std::vector<std::string>& cells) const;
    void Measure(const std::vector<std::string>& cells);

    std::vector<Column> m_columns;
    std::vector<std::size_t> m_widths;
    std::vector<std::vector<std::string>> m_rows;
};

}  // namespace k4ctl
