// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QLocale>
#include <QObject>
#include <QString>

/// The texts that people read, one for each key. Message keys begin with "lang.", the keys of captions with the name
/// of their window. Keys compare exactly.
///
/// Keys that begin with "more." are our own additions. Language files can set them, but need not have them all.
class LanguageTable final : public QObject {
    Q_OBJECT

public:
    /// The built-in languages, by the index that settings files hold.
    enum BuiltIn { English, German, French };
    static constexpr int builtInCount = French + 1;
    [[nodiscard]] static constexpr bool isBuiltIn(int index) { return index >= 0 && index < builtInCount; }

    /// Starts in English.
    LanguageTable();

    /// Sets every text to that of a built-in language. An unknown index changes nothing.
    void selectBuiltIn(int index);
    /// The built-in language that was selected last.
    [[nodiscard]] int builtIn() const { return m_builtIn; }
    /// The built-in language for a locale; English for a locale without one.
    [[nodiscard]] static int builtInFor(const QLocale& locale);
    /// The locale of a built-in language.
    [[nodiscard]] static QLocale localeOf(int index);

    /// Sets one text; false for an unknown key. Emit `changed` after the last one.
    bool set(const QByteArray& key, const QString& text);

    /// The current text of `key`; empty for a key that is not in the table.
    [[nodiscard]] QString text(const QByteArray& key) const;
    [[nodiscard]] QString text(const char* key) const;
    [[nodiscard]] bool contains(const QByteArray& key) const { return m_texts.contains(key); }
    /// Every key but our own additions, in no order.
    [[nodiscard]] QList<QByteArray> keys() const { return m_texts.keys(); }

    /// A label and its value. French has a protected space before the colon.
    [[nodiscard]] QString labelled(const QString& label, const QString& value) const;

    /// A caption for use in other texts: without the "&" of its access key and the dots at its end.
    [[nodiscard]] static QString plain(QString caption);

signals:
    /// Texts have changed: everything that shows one must show it anew.
    void changed();

private:
    QHash<QByteArray, QString> m_texts;
    QHash<QByteArray, QString> m_more;
    int m_builtIn = English;
};
