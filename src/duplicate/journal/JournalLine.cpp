#include "duplicate/journal/JournalLine.h"

#include "duplicate/journal/CheckedLine.h"

#include <algorithm>
#include <charconv>

namespace orvana
{

using platform::Keep;

namespace
{

// A journal of another layout begins with another word, and is not read.
constexpr std::string_view OpeningWord = "journal1";

// A word holds no blank and no newline, and is never empty.
std::string wordOf(std::string_view bytes)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string word = "=";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > ' ' && byte != '%' && byte < 0x7F)
            word += c;
        else
            (word += '%').append({Digits[byte >> 4U], Digits[byte & 15U]});
    }
    return word;
}

/// Takes the words of a line one by one. After the first word that is not as expected, nothing more is right.
class Words
{
public:
    explicit Words(std::string_view text) : m_rest(text) {}

    std::string_view next()
    {
        const auto end = std::min(m_rest.find(' '), m_rest.size());
        const auto word = m_rest.substr(0, end);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        return word;
    }

    template <class Number>
    Number number()
    {
        const auto word = next();
        Number value = 0;
        const auto result = std::from_chars(word.data(), word.data() + word.size(), value);
        m_isRight = m_isRight && result.ec == std::errc() && result.ptr == word.data() + word.size();
        return value;
    }

    std::string bytes()
    {
        const auto word = next();
        m_isRight = m_isRight && word.starts_with('=');
        std::string bytes;
        for (std::size_t i = 1; i < word.size(); ++i) {
            if (word[i] != '%') {
                bytes += word[i];
                continue;
            }
            unsigned char byte = 0;
            const auto code = word.substr(i + 1, 2);
            const auto result = std::from_chars(code.data(), code.data() + code.size(), byte, 16);
            m_isRight = m_isRight && code.size() == 2 && result.ptr == code.data() + code.size();
            bytes += static_cast<char>(byte);
            i += 2;
        }
        return bytes;
    }

    void expect(bool isRight) { m_isRight = m_isRight && isRight; }
    bool isRight() const { return m_isRight && m_rest.empty(); }

private:
    std::string_view m_rest;
    bool m_isRight = true;
};

std::string wordsOf(const FileMarks &marks)
{
    return std::to_string(marks.size) + " " + std::to_string(marks.inode) + " " +
           std::to_string(marks.modified) + " " + std::to_string(marks.changed) + " ";
}

std::string wordsOf(const JournalPlace &place)
{
    return wordOf(place.root) + " " + wordOf(place.volume) + " " + wordOf(place.disk);
}

FileMarks marksFrom(Words &words)
{
    FileMarks marks;
    marks.size = words.number<std::uint64_t>();
    marks.inode = words.number<std::uint64_t>();
    marks.modified = words.number<std::int64_t>();
    marks.changed = words.number<std::int64_t>();
    return marks;
}

JournalPlace placeFrom(Words &words)
{
    JournalPlace place;
    place.root = words.bytes();
    place.volume = words.bytes();
    place.disk = words.bytes();
    return place;
}

std::string_view letterOf(Keep keep)
{
    switch (keep) {
    case Keep::Nothing:
        return "";
    case Keep::Dates:
        return "t";
    case Keep::All:
        return "a";
    }
    return "";
}

// Reads one word: how the copy was checked, and what else it has of its source.
void howFrom(Words &words, JournalRecord &record)
{
    const auto word = words.next();
    for (const auto check : {CopyCheck::None, CopyCheck::FromMemory, CopyCheck::FromDisk}) {
        for (const auto keep : {Keep::Nothing, Keep::Dates, Keep::All}) {
            if (word.starts_with(static_cast<char>(check)) && word.substr(1) == letterOf(keep)) {
                record.check = check;
                record.keep = keep;
                return;
            }
        }
    }
    words.expect(false);
}

JournalRecord recordFrom(Words &words)
{
    JournalRecord record;
    record.destination = words.number<std::size_t>();
    record.group = words.number<std::uint64_t>();
    record.bytes = words.number<std::uint64_t>();
    howFrom(words, record);
    record.source = marksFrom(words);
    record.copy = marksFrom(words);
    record.digest = words.bytes();
    record.path = words.bytes();
    return record;
}

} // namespace

FileMarks marksOf(const platform::Attributes &attributes)
{
    return {attributes.size, attributes.inode, attributes.modified, attributes.changed};
}

bool isNamed(const JournalPlace &place)
{
    return !place.volume.empty() && !place.disk.empty();
}

bool isSamePlace(const JournalPlace &a, const JournalPlace &b)
{
    if (isNamed(a) && isNamed(b))
        return a.volume == b.volume && a.disk == b.disk;
    return a == b;
}

bool mayBeSamePlace(const JournalPlace &a, const JournalPlace &b)
{
    const auto isSame = [](const std::string &left, const std::string &right) {
        return !left.empty() && left == right;
    };
    return isSame(a.root, b.root) || isSame(a.volume, b.volume) || isSame(a.disk, b.disk);
}

std::string lineOf(const JournalRecord &record)
{
    return checkedLine("copy " + std::to_string(record.destination) + " " + std::to_string(record.group) +
                       " " + std::to_string(record.bytes) + " " + static_cast<char>(record.check) +
                       std::string(letterOf(record.keep)) + " " + wordsOf(record.source) +
                       wordsOf(record.copy) + wordOf(record.digest) + " " + wordOf(record.path));
}

std::string openingLine(const JournalPlace &source)
{
    return checkedLine(std::string(OpeningWord) + " " + wordsOf(source));
}

std::string jobLine(std::string_view job)
{
    return checkedLine("job " + wordOf(job));
}

std::string destinationLine(std::size_t number, const JournalPlace &place)
{
    return checkedLine("destination " + std::to_string(number) + " " + wordsOf(place));
}

std::string endLine(std::size_t number)
{
    return checkedLine("end " + std::to_string(number));
}

std::string resumedLine()
{
    return checkedLine("resumed");
}

std::optional<JournalLine> parseLine(std::string_view line)
{
    const auto body = bodyOfLine(line);
    if (!body)
        return std::nullopt;
    Words words(*body);
    JournalLine result;
    const auto kind = words.next();
    if (kind == OpeningWord) {
        result.kind = JournalLine::Kind::Opening;
        result.place = placeFrom(words);
    } else if (kind == "job") {
        result.kind = JournalLine::Kind::Job;
        result.job = words.bytes();
    } else if (kind == "destination") {
        result.kind = JournalLine::Kind::Destination;
        result.destination = words.number<std::size_t>();
        result.place = placeFrom(words);
    } else if (kind == "end") {
        result.kind = JournalLine::Kind::End;
        result.destination = words.number<std::size_t>();
    } else if (kind == "resumed") {
        result.kind = JournalLine::Kind::Resumed;
    } else {
        words.expect(kind == "copy");
        result.record = recordFrom(words);
        result.destination = result.record.destination;
    }
    return words.isRight() ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace orvana
