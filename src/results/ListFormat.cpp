// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ListFormat.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "http/url.h"
#include "results/ResultColumns.h"
#include "results/twk.h"

#include <algorithm>

namespace {

constexpr char apostrophe = '\'';

/// Whether a spreadsheet program may run a cell that begins with this.
constexpr bool beginsFormula(char c)
{
    return c == '=' || c == '+' || c == '-' || c == '@' || c == '"';
}

/// Whether some programs begin a new cell after this.
constexpr bool endsCell(char c)
{
    return c == ',' || c == ';' || c == ' ' || c == '"';
}

/// Puts an apostrophe before every character that would begin a formula: at the beginning of the text and wherever
/// `ends` says that a program may begin a new cell. Where apostrophes stand already, one more is put behind them, so
/// that reading can remove exactly one.
QByteArray asText(const QByteArray& text, bool (*ends)(char))
{
    QByteArray guarded;
    bool atBeginning = true;
    for (const char c : text) {
        if (atBeginning && beginsFormula(c))
            guarded += apostrophe;
        guarded += c;
        atBeginning = ends(c) || (atBeginning && c == apostrophe);
    }
    return guarded;
}

/// Reverts `asText`.
QByteArray fromText(const QByteArray& guarded, bool (*ends)(char))
{
    QByteArray text;
    bool atBeginning = true;
    for (const char c : guarded) {
        if (atBeginning && beginsFormula(c) && text.endsWith(apostrophe))
            text.chop(1);
        text += c;
        atBeginning = ends(c) || (atBeginning && c == apostrophe);
    }
    return text;
}

bool nowhere(char)
{
    return false;
}

using listFormat::Format;

/// No program splits the lines of a list of URLs into cells, so only the beginning of a line is guarded there.
QByteArray guarded(Format format, const QByteArray& text)
{
    return asText(allgemein::onOneLine(text), format == Format::Csv ? &endsCell : &nowhere);
}

QByteArray unguarded(Format format, const QByteArray& text)
{
    return fromText(text, format == Format::Csv ? &endsCell : &nowhere);
}

QByteArray joined(const QByteArrayList& fields)
{
    return fields.join('\t');
}

/// The field of the URL, which is the last one of a short line.
QByteArray urlField(Format format, const QByteArrayList& fields)
{
    return unguarded(format, fields.value(qMin<qsizetype>(ResultColumn::Url, fields.size() - 1))).trimmed();
}

/// Whether `name` has only characters of protocols and hosts. Remarks that people write beside URLs have others.
bool isName(QByteArrayView name)
{
    const auto isOfName = [](char c) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        return letter || c == '.' || c == '-' || c == '_' || static_cast<unsigned char>(c) >= 0x80;
    };
    return std::all_of(name.begin(), name.end(), isOfName);
}

std::optional<QByteArray> urlFrom(const QByteArray& text)
{
    // Encoded before it is tested: reading a port skips a TAB before the number, but not the TAB's encoding.
    const QByteArray url = allgemein::onOneLine(url::withProtocol(text));
    // A "mailto:" URL has neither a host nor a port.
    const bool usable = !text.isEmpty() && url::isValidUrl(url) && url.size() <= url::longest
        && isName(url::protocolOf(url)) && isName(url::hostOf(url)) && url::portOf(url) > 0;
    return usable ? std::optional(url) : std::nullopt;
}

void readFields(FundStück& item, const QByteArrayList& fields)
{
    const auto text = [&](ResultColumn::Id column) {
        return unguarded(Format::Csv, fields[column]);
    };
    const QByteArray& size = fields[ResultColumn::Size];
    item.mimeTyp = text(ResultColumn::MimeContent);
    item.groesse = size == "?" ? -1 : allgemein::leadingNumber(size);
    item.tiefe = qMax(0, allgemein::leadingNumber32(fields[ResultColumn::Depth]));
    item.statusCode = allgemein::leadingNumber32(fields[ResultColumn::Status]);
    item.referenzTyp = twk::referenceTypeFrom(allgemein::fromSystem(fields[ResultColumn::RefType]));
    item.sprache = text(ResultColumn::Language);
    if (item.statusCode > 0)
        item.zustand = FetchState::Finished;
}

} // namespace

QByteArray listFormat::headerLine(Format format, const LanguageTable& language)
{
    if (format == Format::Urls)
        return {};
    QByteArrayList names;
    for (const ResultColumn& column : resultColumns())
        names += guarded(format, allgemein::toSystem(language.text(column.headerKey)));
    return joined(names);
}

QByteArray listFormat::itemLine(Format format, const FundStück& item)
{
    if (format == Format::Urls)
        return guarded(format, item.adresse);
    QByteArrayList fields;
    for (const ResultColumn& column : resultColumns())
        fields += column.isNumber() ? column.text(item) : guarded(format, column.text(item));
    return joined(fields);
}

std::optional<FundStück> listFormat::itemFrom(Format format, const QByteArray& line)
{
    const QByteArrayList fields = format == Format::Csv ? line.split('\t') : QByteArrayList { line };
    const auto url = urlFrom(urlField(format, fields));
    if (!url)
        return {};
    FundStück item;
    item.adresse = *url;
    if (fields.size() > ResultColumn::Url)
        readFields(item, fields);
    return item;
}

bool listFormat::isHeaderLine(Format format, const QByteArray& line)
{
    return format == Format::Csv && !urlField(format, line.split('\t')).contains("://");
}
