// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StepQueue.h"
#include "requests/RequestChoices.h"

#include <QDialog>

#include <memory>
#include <optional>

class CookieSource;
class CookieStore;
class FileDialogs;
class LanguageTable;
class Messages;
class Registry;

namespace Ui {
class dialog_requests;
}

/// The window in which the request preferences are edited, browsers' cookies taken over, and stored ones deleted.
class dialog_requests final : public QDialog {
    Q_OBJECT

public:
    /// All of them must outlive the window.
    dialog_requests(RequestPrefs& prefs, const CookieStore& cookies, const LanguageTable& language, Messages& messages,
        FileDialogs& fileDialogs, const Registry& registry, QWidget* parent);
    ~dialog_requests() override;

    /// Shows the preferences' switches, and the window.
    void run();
    /// Shows the chosen languages, which others have changed.
    void showLanguages();

private:
    void wire();
    void wireLanguages();
    void wireCookies();
    void applyCaptions();
    void enableControls();
    void takeChoices();
    /// Calls `then` when the preferences are applied.
    void apply(std::function<void()> then);
    void addLanguages();
    void removeLanguage();
    void moveLanguage(int by);
    [[nodiscard]] std::optional<qsizetype> selectedLanguage() const;
    void selectLanguage(qsizetype index);
    void askForCookieFile(const QString& name, std::unique_ptr<CookieSource> (*sourceOf)(const QString& fileName));
    void startImport(std::unique_ptr<CookieSource> source);
    void deleteCookies();
    [[nodiscard]] QString text(const char* key) const;

    RequestChoices m_choices;
    const CookieStore& m_cookies;
    const LanguageTable& m_language;
    Messages& m_messages;
    FileDialogs& m_fileDialogs;
    const Registry& m_registry;
    StepQueue m_importing;
    bool m_isApplying = false; ///< the warning is shown
    std::unique_ptr<Ui::dialog_requests> m_ui;
};
