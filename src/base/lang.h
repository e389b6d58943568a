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
/// Keys that begin with "more." stand beside the table: language files cannot set them, so they stay those of the
/// built-in language that was selected last.
class LanguageTable final : public QObject {
    Q_OBJECT

public:
    /// The built-in languages, by the index that settings files hold.
    enum BuiltIn { English, German, French };
    static constexpr int builtInCount = French + 1;

    /// Starts in English.
    LanguageTable();

    /// Sets every text to that of a built-in language. An unknown index changes nothing.
    void selectBuiltIn(int index);
    /// The built-in language that was selected last.
    [[nodiscard]] int builtIn() const { return m_builtIn; }
    /// The built-in language for the users of a locale; English for those that have none.
    [[nodiscard]] static int builtInFor(const QLocale& locale);
    /// The locale of a built-in language.
    [[nodiscard]] static QLocale localeOf(int index);

    /// Sets one text; false for a key that language files cannot set. Tell `changed` when the last one is set.
    bool set(const QByteArray& key, const QString& text);

    /// The current text of `key`; empty for a key that is not in the table.
    [[nodiscard]] QString text(const QByteArray& key) const;
    [[nodiscard]] QString text(const char* key) const;
    [[nodiscard]] bool contains(const QByteArray& key) const { return m_texts.contains(key); }
    /// Every key that language files can set, in no order.
    [[nodiscard]] QList<QByteArray> keys() const { return m_texts.keys(); }

    /// A caption as other texts name it: without the mark of its access key and the dots of a command that asks.
    [[nodiscard]] static QString plain(QString caption);

signals:
    /// Texts are others now: whatever shows one shows it anew.
    void changed();

private:
    QHash<QByteArray, QString> m_texts;
    QHash<QByteArray, QString> m_more;
    int m_builtIn = English;
};
