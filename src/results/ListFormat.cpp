// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ListFormat.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "crawl/url.h"
#include "results/twk.h"

#include <algorithm>

namespace {

enum Column { FileName, MimeContent, Size, Depth, Status, RefType, Language, Url, ColumnCount };

constexpr char apostrophe = '\'';

constexpr bool isRun(char c)
{
    return c == '=' || c == '+' || c == '-' || c == '@' || c == '"';
}

constexpr bool beginsCell(char c)
{
    return c == ',' || c == ';' || c == ' ' || c == '"';
}

/// Puts an apostrophe before what a spreadsheet program would run: in the beginning of the text, or wherever it may
/// begin a cell. Apostrophes that stand there already count, so that none is mistaken for one of these.
QByteArray asText(const QByteArray& text, bool (*begins)(char))
{
    QByteArray guarded;
    bool atBeginning = true;
    for (const char c : text) {
        if (atBeginning && isRun(c))
            guarded += apostrophe;
        guarded += c;
        atBeginning = begins(c) || (atBeginning && c == apostrophe);
    }
    return guarded;
}

/// What `asText` was made from.
QByteArray fromText(const QByteArray& guarded, bool (*begins)(char))
{
    QByteArray text;
    bool atBeginning = true;
    for (const char c : guarded) {
        if (atBeginning && isRun(c) && text.endsWith(apostrophe))
            text.chop(1);
        text += c;
        atBeginning = begins(c) || (atBeginning && c == apostrophe);
    }
    return text;
}

bool nowhere(char)
{
    return false;
}

using listFormat::Format;

/// Within a line of URLs nobody begins a cell, and other programs shall read them as they are.
QByteArray guarded(Format format, const QByteArray& text)
{
    return asText(allgemein::onOneLine(text), format == Format::Csv ? &beginsCell : &nowhere);
}

QByteArray unguarded(Format format, const QByteArray& text)
{
    return fromText(text, format == Format::Csv ? &beginsCell : &nowhere);
}

QByteArray joined(const QByteArrayList& fields)
{
    return fields.join('\t');
}

/// What stands in the place of the URL.
QByteArray urlField(Format format, const QByteArrayList& fields)
{
    return unguarded(format, fields.value(qMin<qsizetype>(Url, fields.size() - 1))).trimmed();
}

/// Whether a protocol or a host is made of what these are made of. What people write beside URLs is not.
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
    // Judged as it is kept: a TAB before the number of a port is read over, its percent-encoding is not.
    const QByteArray url = allgemein::onOneLine(url::withProtocol(text));
    // "mailto:" and the like name neither a host nor a port.
    const bool usable = !text.isEmpty() && url::isValidUrl(url) && url.size() <= url::longest
        && isName(url::protocolOf(url)) && isName(url::hostOf(url)) && url::portOf(url) > 0;
    return usable ? std::optional(url) : std::nullopt;
}

void readFields(FundStück& item, const QByteArrayList& fields)
{
    const auto field = [&](Column column) {
        return unguarded(Format::Csv, fields[column]);
    };
    item.mimeTyp = field(MimeContent);
    item.groesse = fields[Size] == "?" ? -1 : allgemein::leadingNumber(fields[Size]);
    item.tiefe = qMax(0, allgemein::leadingNumber32(fields[Depth]));
    item.statusCode = allgemein::leadingNumber32(fields[Status]);
    item.referenzTyp = twk::referenceTypeFrom(allgemein::fromSystem(fields[RefType]));
    item.sprache = field(Language);
    if (item.statusCode > 0)
        item.zustand = Zustand::Fertig;
}

} // namespace

QByteArray listFormat::headerLine(Format format, const LanguageTable& language)
{
    if (format == Format::Urls)
        return {};
    QByteArrayList names;
    for (int column = 1; column <= ColumnCount; ++column) {
        const QByteArray key = "main.l_founds.ColumnHeaders(" + QByteArray::number(column) + ')';
        names += guarded(format, allgemein::toSystem(language.text(key)));
    }
    return joined(names);
}

QByteArray listFormat::itemLine(Format format, const FundStück& item)
{
    const QByteArray url = guarded(format, item.adresse);
    if (format == Format::Urls)
        return url;
    return joined({ guarded(format, url::fileNameOf(item.adresse).toByteArray()), guarded(format, item.mimeTyp),
        item.groesse < 0 ? QByteArray("?") : QByteArray::number(item.groesse), QByteArray::number(item.tiefe),
        QByteArray::number(item.statusCode), allgemein::toSystem(twk::referenceTypeName(item.referenzTyp)),
        guarded(format, item.sprache), url });
}

std::optional<FundStück> listFormat::itemFrom(Format format, const QByteArray& line)
{
    const QByteArrayList fields = format == Format::Csv ? line.split('\t') : QByteArrayList { line };
    const auto url = urlFrom(urlField(format, fields));
    if (!url)
        return {};
    FundStück item;
    item.adresse = *url;
    if (fields.size() >= ColumnCount)
        readFields(item, fields);
    return item;
}

bool listFormat::isHeaderLine(Format format, const QByteArray& line)
{
    return format == Format::Csv && !urlField(format, line.split('\t')).contains("://");
}
