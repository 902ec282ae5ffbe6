#include "apps/k4ctl/Table.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "apps/k4ctl/TerminalText.h"

namespace k4ctl {

Table::Table(std::vector<Column> columns)
    : m_columns(std::move(columns)), m_widths(m_columns.size(), 0) {
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        m_widths[index] = DisplayWidth(m_columns[index].title);
    }
}

void Table::Add(std::vector<std::string> cells) {
    cells.resize(m_columns.size());
    for (std::string& cell : cells) {
        cell = Escaped(cell);
    }
    Measure(cells);
    m_rows.push_back(std::move(cells));
}

void Table::Measure(const std::vector<std::string>& cells) {
    for (std::size_t index = 0; index < cells.size(); ++index) {
        m_widths[index] = std::max(m_widths[index], DisplayWidth(cells[index]));
    }
}

std::string Table::Line(const std::vector<std::string>& cells) const {
    std::string line;
    for (std::size_t index = 0; index < cells.size(); ++index) {
        const std::string blanks(m_widths[index] - DisplayWidth(cells[index]), ' ');
        line += index == 0 ? "" : "  ";
        line +=
            m_columns[index].align == Align::Right ? blanks + cells[index] : cells[index] + blanks;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

std::string Table::Text() const {
    std::string text;
    std::vector<std::string> titles;
    for (const Column& column : m_columns) {
        titles.push_back(column.title);
    }
    if (std::any_of(titles.begin(), titles.end(),
                    [](const auto& title) { return !title.empty(); })) {
        text += Line(titles);
    }
    for (const auto& row : m_rows) {
        text += Line(row);
    }
    return text;
}

}  // namespace k4ctl
