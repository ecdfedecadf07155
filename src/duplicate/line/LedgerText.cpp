#include "duplicate/line/LedgerText.h"

#include "foundation/DisplayPath.h"
#include "foundation/JsonFields.h"

#include <algorithm>
#include <array>
#include <map>

namespace orvana
{

namespace
{

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

constexpr std::array Columns{"id",    "station", "line",  "number",   "serial", "model",
                             "size",  "bay",     "name",  "verdict",  "reason", "began",
                             "ended", "files",   "bytes", "manifest", "health", "certificate"};

Row fieldsOf(const LineHead &head, const LineEntry &entry)
{
    const auto &disk = entry.disk;
    const auto result = entry.result.value_or(LineResult());
    return {idOf(head, disk.number),
            head.station,
            head.id,
            std::to_string(disk.number),
            displayPath(disk.serial),
            displayPath(disk.model),
            std::to_string(disk.size),
            disk.bay,
            displayPath(disk.name),
            wordOf(result.verdict),
            displayPath(result.reason),
            disk.began,
            result.ended,
            std::to_string(result.files),
            std::to_string(result.bytes),
            result.manifest,
            displayPath(result.health),
            displayPath(result.certificate)};
}

std::string quoted(const std::string &field)
{
    if (field.find_first_of(",\"\r\n") == std::string::npos)
        return field;
    std::string text = "\"";
    for (const char c : field)
        text.append(c == '"' ? "\"\"" : std::string(1, c));
    return text + "\"";
}

/// Reads CSV character by character.
class CsvReader
{
public:
    explicit CsvReader(std::string_view text) : m_text(text) {}

    tl::expected<Rows, std::string> rows()
    {
        Rows rows;
        while (m_next < m_text.size()) {
            Row row;
            do {
                auto field = this->field();
                if (!field)
                    return tl::unexpected("row " + std::to_string(rows.size() + 1) + ": " + field.error());
                row.push_back(std::move(*field));
            } while (takes(','));
            takes('\r');
            if (!takes('\n') && m_next < m_text.size())
                return tl::unexpected("row " + std::to_string(rows.size() + 1) +
                                      ": something stands behind a quoted field");
            rows.push_back(std::move(row));
        }
        return rows;
    }

private:
    bool takes(char c)
    {
        const bool isThere = m_next < m_text.size() && m_text[m_next] == c;
        m_next += isThere ? 1 : 0;
        return isThere;
    }

    tl::expected<std::string, std::string> field()
    {
        std::string field;
        if (!takes('"')) {
            while (m_next < m_text.size() &&
                   std::string_view(",\r\n").find(m_text[m_next]) == std::string::npos)
                field += m_text[m_next++];
            return field;
        }
        while (m_next < m_text.size()) {
            const char c = m_text[m_next++];
            if (c != '"')
                field += c;
            else if (takes('"'))
                field += '"';
            else
                return field;
        }
        return tl::unexpected(std::string("a quoted field does not end"));
    }

    std::string_view m_text;
    std::size_t m_next = 0;
};

tl::expected<Rows, std::string> rowsOfCsv(std::string_view text)
{
    auto rows = parseCsv(text);
    if (!rows)
        return rows;
    const Row heading(Columns.begin(), Columns.end());
    if (rows->empty() || rows->front() != heading)
        return tl::unexpected(std::string("not a ledger: its first line is another one"));
    rows->erase(rows->begin());
    for (std::size_t i = 0; i < rows->size(); ++i) {
        if ((*rows)[i].size() != Columns.size())
            return tl::unexpected("row " + std::to_string(i + 2) + ": " + std::to_string((*rows)[i].size()) +
                                  " fields in place of " + std::to_string(Columns.size()));
    }
    return rows;
}

tl::expected<Rows, std::string> rowsOfJson(std::string_view text)
{
    Rows rows;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty())
            continue;
        const auto where = "row " + std::to_string(rows.size() + 1) + ": ";
        const auto json = parseJson(line);
        if (!json || !json->is_object())
            return tl::unexpected(where + "not a JSON object");
        Row row;
        for (const char *column : Columns) {
            const auto value = json->find(column);
            if (value == json->end() || !(value->is_string() || value->is_number_integer()))
                return tl::unexpected(where + "no \"" + column + "\"");
            row.push_back(value->is_string() ? value->get<std::string>() : value->dump());
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace

std::string ledgerHeading()
{
    return csvText({Row(Columns.begin(), Columns.end())});
}

std::string csvRow(const LineHead &head, const LineEntry &entry)
{
    return csvText({fieldsOf(head, entry)});
}

std::string jsonRow(const LineHead &head, const LineEntry &entry)
{
    const auto fields = fieldsOf(head, entry);
    Json row;
    for (std::size_t i = 0; i < Columns.size(); ++i)
        row[Columns[i]] = fields[i];
    const auto result = entry.result.value_or(LineResult());
    row["number"] = entry.disk.number;
    row["size"] = entry.disk.size;
    row["files"] = result.files;
    row["bytes"] = result.bytes;
    return row.dump() + "\n";
}

tl::expected<Rows, std::string> parseCsv(std::string_view text)
{
    return CsvReader(text).rows();
}

tl::expected<Rows, std::string> collectLedgers(const std::vector<LedgerFile> &files)
{
    std::map<std::string, Row> byId;
    for (const auto &file : files) {
        const auto rows = file.text.starts_with('{') ? rowsOfJson(file.text) : rowsOfCsv(file.text);
        if (!rows)
            return tl::unexpected(displayPath(file.name) + ": " + rows.error());
        for (const auto &row : *rows) {
            const auto [known, isNew] = byId.emplace(row.front(), row);
            if (!isNew && known->second != row)
                return tl::unexpected(displayPath(file.name) + ": " + row.front() +
                                      " is another disk in another ledger");
        }
    }
    Rows all;
    all.reserve(byId.size());
    for (auto &[id, row] : byId)
        all.push_back(std::move(row));
    return all;
}

std::string csvText(const Rows &rows)
{
    std::string text;
    for (const auto &row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            text += (i > 0 ? "," : "") + quoted(row[i]);
        text += "\r\n";
    }
    return text;
}

} // namespace orvana
