// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"
#include "base/StepQueue.h"
#include "requests/CookieImport.h"
#include "requests/RequestChoices.h"

#include <QDialog>
#include <QList>

#include <functional>
#include <memory>
#include <optional>

class CookieStore;
class QCheckBox;

namespace Ui {
class dialog_requests;
}

/// The dialog for the request preferences. It also imports browsers' cookies and deletes the stored ones.
class dialog_requests final : public QDialog {
    Q_OBJECT

public:
    /// `prefs` and `cookies` must outlive the window.
    dialog_requests(RequestPrefs& prefs, RequestPrefs& own, CookieStore& cookies, const Seams& seams, QWidget* parent);
    ~dialog_requests() override;

    /// Copies the switches from the preferences and shows the window.
    void run();
    /// Shows the chosen languages anew, after they were changed elsewhere.
    void showLanguages();

private:
    void wire();
    void wireLanguages();
    void wireCookies();
    void applyCaptions();
    void enableControls();
    void takeChoices();
    /// Warns of cookies if necessary, applies the preferences, then calls `then`.
    void apply(std::function<void()> then);
    void addLanguages();
    void removeLanguage();
    void moveLanguage(int by);
    [[nodiscard]] std::optional<qsizetype> selectedLanguage() const;
    void selectLanguage(qsizetype index);
    /// Opens the storage of a browser. An import may need it twice.
    using OpenSource = std::function<std::unique_ptr<CookieSource>()>;
    void askForCookieFile(const QString& name, std::unique_ptr<CookieSource> (*sourceOf)(const QString& fileName));
    void startImport(const OpenSource& open);
    void import(const OpenSource& open, CookieImport::Taking taking);
    void endImport(const OpenSource& open, const CookieImport& cookies);
    void deleteCookies();

    RequestChoices m_choices;
    CookieStore& m_cookies;
    Seams m_seams;
    QList<QPair<QCheckBox*, bool*>> m_switches; ///< with the choice that each one switches
    StepQueue m_importing;
    bool m_isApplying = false; ///< the cookie warning is open
    std::unique_ptr<Ui::dialog_requests> m_ui;
};
