// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

/// The header of an answer, read as RFC 9112 says: lines end in CR LF or LF, names match as a whole and in any letter
/// case, blanks around a value do not belong to it, and a line that begins with a blank continues the value before it.
///
/// Views that the readers return are valid as long as the header is neither changed nor destroyed.
class HeaderFields {
public:
    HeaderFields() = default;
    /// Reads a status line and field lines, each with its line end; the blank line may follow. Nothing if the first
    /// line is no status line of HTTP/1.
    [[nodiscard]] static std::optional<HeaderFields> parse(const QByteArray& block);

    /// 100 to 999; 0 without a header.
    [[nodiscard]] int status() const { return m_status; }
    /// Whether the answer is of HTTP/1.1 or a later minor version, not of HTTP/1.0.
    [[nodiscard]] bool isHttp11() const { return m_isHttp11; }

    /// The value of the first field `name`. Null without the field; empty, but not null, if the field has no value.
    [[nodiscard]] QByteArrayView value(QByteArrayView name) const;
    /// The values of all fields `name`, in the order of the header.
    [[nodiscard]] std::vector<QByteArrayView> values(QByteArrayView name) const;
    /// The elements of all fields `name` whose value is a list with commas. Empty elements are left out.
    [[nodiscard]] std::vector<QByteArrayView> elements(QByteArrayView name) const;
    [[nodiscard]] bool contains(QByteArrayView name) const { return !value(name).isNull(); }

    /// Whether a line breaks the rules: no colon, no proper name, a blank before the colon, a NUL or a lone CR. Such a
    /// header is of use, but another reader could find other fields in it, so the connection should not be kept.
    [[nodiscard]] bool isDoubtful() const { return m_isDoubtful; }

    /// The header as it arrived, but with continued lines joined, and without NUL and lone CR.
    [[nodiscard]] const QByteArray& text() const { return m_text; }

private:
    /// Places in `m_text`, from the first character to behind the last.
    struct Range {
        qsizetype from = 0;
        qsizetype to = 0;
    };
    struct Field {
        Range name;
        Range value;
    };

    [[nodiscard]] QByteArrayView view(Range range) const;
    [[nodiscard]] Range withoutBlanks(Range range) const;
    [[nodiscard]] bool readStatusLine(Range line);
    void replaceDangerous(Range line);
    void readField(Range line);
    void continueField(Range line);

    QByteArray m_text;
    std::vector<Field> m_fields;
    int m_status = 0;
    bool m_isHttp11 = false;
    bool m_isDoubtful = false;
    bool m_lastLineIsField = false; ///< while reading: a continued line belongs to the last field
};

/// Whether two names of the protocol are the same: the case of ASCII letters does not matter.
[[nodiscard]] inline bool isSameToken(QByteArrayView left, QByteArrayView right)
{
    return left.size() == right.size() && left.compare(right, Qt::CaseInsensitive) == 0;
}
