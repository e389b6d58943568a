// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowPlace.h"
#include "base/folders.h"
#include "base/window/zahlenEingabe.h"
#include "results/ResultColumns.h"
#include "results/window/MimeModel.h"
#include "session/Settings.h"
#include "support/Table.h"
#include "support/WindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QListView>
#include <QListWidget>
#include <QScreen>
#include <QSplitter>

#include <array>

/// Starts the program, changes settings, ends the program and starts it again.
class tst_Settings : public WindowFixture {
    Q_OBJECT

private slots:
    void everySettingSurvives();
    void startsWithoutFiles_data();
    void startsWithoutFiles();
    void takesWhatItCan_data();
    void takesWhatItCan();
    void resumesALanguageFile();
    void keepsPathsThatTheCodePageLacks();
    void quitsWhereNothingCanBeWritten();
    void leavesWhatItCouldNotRead();
    void keepsColumnsAndPlaces();
    void remembersTheSplitterOfAHiddenTree();
    void fitsWindowsOnTheScreen_data();
    void fitsWindowsOnTheScreen();
    void takesLimitsFromItsOwnFile();
    void damagedViewsAreHarmless();

private:
    void restart();
    void changeEverything();
    [[nodiscard]] QMainWindow& shownDownloads() const;
    [[nodiscard]] QStringList shownStates() const;
    [[nodiscard]] QSplitter& splitter() const { return *m_window->findChild<QSplitter*>(); }
    [[nodiscard]] QByteArray saved() const { return contentOf(settingsFile()); }
    [[nodiscard]] QByteArray boxText() const;
};

namespace {

/// Every control of a window and of its dialogs with its content.
QStringList statesOf(const QWidget& window)
{
    QStringList states;
    for (const QObject* const object : window.findChildren<QObject*>()) {
        // The combo box of the User-Agent shows the first ready text after each start.
        const bool isNew = object->parent()->objectName() == QLatin1String("t_userAgent");
        for (const char* const property : { "checked", "value", "text", "count" }) {
            if (!isNew && !object->objectName().isEmpty())
                states += object->objectName() + u'=' + object->property(property).toString();
        }
    }
    return states;
}

} // namespace

void tst_Settings::restart()
{
    quit();
    start();
}

QMainWindow& tst_Settings::shownDownloads() const
{
    choose("m_showDlm");
    return *downloadManager();
}

QStringList tst_Settings::shownStates() const
{
    for (const char* window : { "m_searchNew", "m_requests" }) // these dialogs show the settings when they are opened
        choose(window);
    return statesOf(*m_window);
}

QByteArray tst_Settings::boxText() const
{
    const Messages::Box box = m_messages.told.value(0);
    QString text = m_messages.told.isEmpty() ? QString() : box.title + u'\n' + box.text;
    return text.replace(QDir::toNativeSeparators(settingsFile()), QLatin1String("@")).toUtf8();
}

void tst_Settings::changeEverything()
{
    for (const char* const entry : { "m_searchNew", "m_requests", "m_filterAutoApply", "m_resolve3xx", "m_autoOpenDLM",
             "m_showFilter", "m_showTree", "m_lang(1)" })
        choose(entry);
    for (const char* const button :
        { "rad_followSub(2)", "c_maxDepth", "c_AnalyseAnchors", "c_analyseLink", "c_AnalyseFrames", "c_AnalyseEPic",
            "c_analyseAllSrc", "c_analyseForms", "c_useLanguage", "c_useUserAgent", "c_referrer", "c_setCookies",
            "c_useCookies", "mimeFilterSwitch(1)", "urlFilterSwitch(2)", "c_useSize", "c_useMaxDepth" })
        click(button);
    int number = 3;
    for (const char* const field : { "minSize", "maxSize", "minDepth", "maxDepth", "tiefe" })
        the<zahlenEingabe>(field).setValue(number++);
    const std::array<const char*, 3> typed[] = { { "startlink", "http://h/a=b", "rad_followSub(2)" },
        { "unterpfadEingabe", "www.h", "b_addToSubUrlList" },
        { "unterpfadEingabe", "http://h/x/", "b_addToSubUrlList" }, { "neuFilterText", "=x", "addFilterText" },
        { "neuFilterText", ".pdf", "addFilterText" } };
    for (const auto& [field, text, button] : typed) {
        the<QLineEdit>(field).setText(QString::fromLatin1(text));
        click(button);
    }
    for (const int row : { 3, 1 }) {
        the<QListWidget>("sprachVorrat").setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
        click("sprachAdd");
    }
    the<QComboBox>("t_userAgent").setCurrentText(QStringLiteral("x = 1"));
    auto& types = *qobject_cast<MimeModel*>(the<QListView>("mimeListe").model());
    for (const char* const type : { "text/html; a=b", "image/png" })
        types.meet(type);
    types.setData(types.index(1, 0), Qt::Checked, Qt::CheckStateRole);
    confirm("dialog_getSearch", "b_cancel");
    confirm("dialog_requests");
    m_dialogs.choice = m_folder->path();
    for (const char* const entry : { "c_DirByUrl", "c_RenameForMS", "c_extByMIME", "m_overwriteExistingFiles",
             "c_startImm", "c_usePercent", "m_removeFinished", "m_targetSel" })
        ::choose(shownDownloads(), entry);
    shownDownloads().resize(500, 300);
}

void tst_Settings::everySettingSurvives()
{
    start();
    m_window->resize(780, 560);
    splitter().setSizes({ 300, 480 });
    const int treeX = splitter().sizes().constFirst();
    changeEverything();
    const QStringList states = shownStates();
    const QStringList downloadStates = statesOf(shownDownloads());
    quit();

    const QByteArray expected =
        "StartUrl=http://h/a=b\nMaxDepth=0\nDepth=7\nFollowSub=2\nSub=http://www.h\n"
        "Sub=http://h:80/x/\nAnalyseAnchors=0\nAnalyseLink=0\nAnalyseAllSrc=1\nAnalyseFrames=0\n"
        "AnalyseEPic=0\nAnalyseForms=1\n"
        "Referrer=0\nUseUserAgent=0\nUserAgent=x = 1\nUseLanguage=1\nLanguage=af Afrikaans\n"
        "Language=ab Abkhazian\nuseCookies=1\nsetCookies=0\ndontWarnAboutCookiesAgain=0\n"
        "DLTarget="
        + QDir::toNativeSeparators(allgemein::withTrailingSeparator(m_folder->path())).toLocal8Bit()
        + "\nc_DirByUrl=1\nc_RenameForMS=0\nc_extByMIME=1\nc_overwriteExistingFiles=1\nc_startImm=0\nc_usePercent=0\n"
          "lang=1\nFilterAutoApply=0\nfilter=0\ntree=0\ntree_x="
        + QByteArray::number(15 * treeX)
        + "\nmain_width=11700\nmain_height=8400\nmain_maximized=0\nDLM_width=7500\nDLM_height=4500\n"
          "resolveHttp301=0\nAutoOpenDLM=0\nRemoveFinishedDL=1\n"
          "Filter_MIMETypes=1\nFilter_MIMEList=image/png\nFilter_MIMEList=text/html; a=b\n"
          "Filter_URL=2\nFilter_URLList==x\nFilter_URLList=.pdf\n"
          "Filter_UseSize=1\nFilter_minSize=3\nFilter_maxSize=4\n"
          "Filter_UseDepth=1\nFilter_minDepth=5\nFilter_maxDepth=6\n";
    const QByteArray first = saved();
    QCOMPARE(QByteArray(first).replace("\r\n", "\n").split('\n'), expected.split('\n'));
    QCOMPARE(first.count("\r\n"), first.count('\n'));

    start();
    QCOMPARE(boxText(), "");
    QCOMPARE(shownStates(), states);
    QCOMPARE(statesOf(shownDownloads()), downloadStates);
    QCOMPARE(m_session->requestPrefs.languageHeader, "af;q=1, ab;q=0.5");
    QCOMPARE(m_session->requestPrefs.userAgent, "x = 1");
    QVERIFY(!m_session->filter.mimeListe.isListed("image/png"));
    QVERIFY(m_session->filter.mimeListe.isListed("text/html; a=b"));
    QCOMPARE(m_window->size(), QSize(780, 560));
    QCOMPARE(shownDownloads().size(), QSize(500, 300));
    QVERIFY(!the<QWidget>("fr_filter").isVisible());
    QVERIFY(!the<QWidget>("baum").isVisible());
    quit();
    QCOMPARE(saved(), first);
    QVERIFY(m_messages.told.isEmpty());
}

void tst_Settings::startsWithoutFiles_data()
{
    const auto row = table<QByteArray, int>("defaultLanguage", "language");
    row("nothing at all", {}, LanguageTable::builtInFor(QLocale::system()));
    row("a language for the first start", "2\r\n", LanguageTable::French);
    row("no number", "x", LanguageTable::English);
    row("a number of no language", "7", LanguageTable::English);
}

void tst_Settings::startsWithoutFiles()
{
    QFETCH(QByteArray, defaultLanguage);
    QVERIFY(QFile::remove(file("default_lang.ini")));
    if (!defaultLanguage.isEmpty())
        QVERIFY(writeFile(file("default_lang.ini"), defaultLanguage));
    start();
    QCOMPARE(boxText(), "");
    QTEST(m_session->language.builtIn(), "language");
    QVERIFY(m_session->searchOptions.maxDepth);
    QVERIFY(downloads().followRelocation);
    QVERIFY(the<QAction>("m_filterAutoApply").isChecked());
}

void tst_Settings::takesWhatItCan_data()
{
    const auto table = ::table<QByteArray, QByteArray, QByteArray>("lines", "line", "told");
    const auto row = [table](const char* name, const QByteArray& lines, const QByteArray& line,
                         const QByteArray& told = {}) {
        table(name, lines, line, told.isEmpty() ? told : "Error while loading preferences\nInvalid attribut:: " + told);
    };
    row("no number for a number", "Filter_maxSize=x", "Filter_maxSize=0");
    row("a bound beyond 2 GiB", "Filter_maxSize=5000000000", "Filter_maxSize=5000000000");
    row("a bound beyond the greatest", "Filter_maxDepth=9999999999999", "Filter_maxDepth=999999999999");
    row("a negative bound", "Filter_maxDepth=-5", "Filter_maxDepth=0");
    row("no number for a switch", "c_startImm=x", "c_startImm=0");
    row("any positive number for a switch", "c_DirByUrl=2", "c_DirByUrl=1");
    row("a mode that does not exist", "Filter_URL=3", "Filter_URL=0");
    row("a language that does not exist", "lang=9", "lang=0");
    row("the last line without an end", "tree=0", "tree=0");
    row("a line that is far too long", QByteArray(3'000'000, 'x') + "\r\ntree=0", "tree=0");
    row("a width beyond every screen", "main_width=2000000000", "main_width=12000");
    row("a type twice", "Filter_MIMEList=a/b\r\nFilter_MIMEList=A/B", "Filter_MIMEList=a/b\r\nFilter_URL=0");
    row("empty lines", "\r\n\ntree=0", "tree=0");
    row("an unknown key", "Tree=0", "tree=1", "Tree\n@:3");
    row("several unknown keys", "x=0\r\ny=1\r\ntree=0\r\nx=2\r\n", "tree=0", "x\n@:3\n... and 2 more");
    row("a line without a key", "rubbish\r\n", "tree=1", "rubbish\n@:3");
    row("a very long key", QByteArray(100, 'x') + "=1", "tree=1", QByteArray(60, 'x') + "\n@:3");
}

void tst_Settings::takesWhatItCan()
{
    QFETCH(QByteArray, lines);
    QFETCH(QByteArray, line);
    QVERIFY(writeFile(settingsFile(), "\xef\xbb\xbflang=0\r\nmain_height=3000\r\n" + lines));
    start();
    QTEST(boxText(), "told");
    quit();
    QVERIFY2(saved().contains(QByteArray("\r\n" + line + "\r\n")), saved().constData());
}

void tst_Settings::resumesALanguageFile()
{
    QVERIFY(writeFile(file("a.lng"), "lang.dlComplete=Done\r\n"));
    start();
    choose("m_lang(1)");
    m_dialogs.choice = file("a.lng");
    choose("m_externLang");
    quit();
    QVERIFY(saved().contains(QByteArray("\r\nlang=-1\r\nlangfile=" + file("a.lng").toLocal8Bit() + "\r\n")));
    start();
    QCOMPARE(m_session->language.text("lang.dlComplete"), QStringLiteral("Done"));
    QCOMPARE(m_session->language.text("lang.dlLoading"), QStringLiteral("Wird geladen"));
    QVERIFY(m_messages.told.isEmpty());

    // Without views.ini the first language is the one below the file.
    quit();
    QVERIFY(QFile::remove(file("data/views.ini")));
    QVERIFY(writeFile(file("default_lang.ini"), "2"));
    start();
    QCOMPARE(m_session->language.text("lang.dlLoading"), QStringLiteral("Téléchargement en cours"));

    // A missing language file stays chosen: it may be back at the next start.
    QVERIFY(QFile::remove(file("a.lng")));
    restart();
    QVERIFY(m_messages.toldText().startsWith("Error while loading language file\n"));
    for (const char* entry : { "m_lang(0)", "m_lang(1)", "m_lang(2)" })
        QVERIFY(!the<QAction>(entry).isChecked());
    restart();
    QVERIFY(saved().contains("\r\nlang=-1\r\n"));
    choose("m_lang(2)");
    quit();
    QVERIFY(saved().contains("\r\nlang=2\r\nFilterAutoApply"));

    // The line of the file may stand above that of its language.
    const QByteArray fileLine = "langfile=" + file("a.lng").toLocal8Bit() + "\r\n";
    QVERIFY(writeFile(file("a.lng"), "lang.dlComplete=Done\r\n"));
    QVERIFY(writeFile(settingsFile(), fileLine + "lang=-1\r\n"));
    start();
    QCOMPARE(m_session->language.text("lang.dlComplete"), QStringLiteral("Done"));
    quit();
    QVERIFY(saved().contains(QByteArray("\r\nlang=-1\r\n" + fileLine)));
    QVERIFY(writeFile(settingsFile(), fileLine + "lang=0\r\n"));
    start();
    QCOMPARE(m_session->language.text("lang.dlComplete"), QStringLiteral("Finished"));
}

/// Only a code page that lacks these letters, as on Windows, shows a fault in the first half.
void tst_Settings::keepsPathsThatTheCodePageLacks()
{
    const QString folder = m_folder->filePath(QStringLiteral("\u0416\u03a9"));
    const QString target = allgemein::withTrailingSeparator(QDir::toNativeSeparators(folder));
    m_dialogs.choice = folder + QStringLiteral("/\u0416.lng");
    QVERIFY(QDir().mkpath(folder) && writeFile(m_dialogs.choice, "lang.dlComplete=Done\r\n"));
    start();
    downloads().target = target;
    choose("m_externLang");
    restart();
    QCOMPARE(downloads().target, target);
    QCOMPARE(m_session->language.text("lang.dlComplete"), QStringLiteral("Done"));
    QVERIFY(m_messages.told.isEmpty());

    // Somebody has changed the prescribed lines since.
    quit();
    QVERIFY(writeFile(file("data/views.ini"), "DLTarget=" + file("other/").toUtf8() + "\r\nlangfile=/other.lng\r\n"));
    QVERIFY(writeFile(settingsFile(), "DLTarget=" + file("this").toLocal8Bit() + "\r\nlang=-1\r\nlangfile=/x.lng\r\n"));
    start();
    QCOMPARE(downloads().target, allgemein::withTrailingSeparator(file("this")));
    QCOMPARE(m_session->windows.langFile, QStringLiteral("/x.lng"));
}

void tst_Settings::quitsWhereNothingCanBeWritten()
{
    start();
    QVERIFY(QDir(file("data")).removeRecursively());
    QVERIFY(writeFile(file("data"), "no folder"));
    m_window->close();
    QCOMPARE(m_messages.told.size(), 1);
    QVERIFY(m_messages.toldText().startsWith("Error while saving preferences\n"));
    QTRY_VERIFY(!m_window->isVisible());
    QCOMPARE(m_messages.told.size(), 1);
}

void tst_Settings::leavesWhatItCouldNotRead()
{
    // First a file that cannot be read at the start and is back at the end, as on a file server; then one that is too
    // large.
    QVERIFY(QDir().mkpath(settingsFile()));
    for (const QByteArray& content : { QByteArray("tree=0\r\n"), QByteArray("tree=0\r\n").repeated(2'500'000) }) {
        start();
        QVERIFY2(boxText().contains('@'), boxText().constData());
        QVERIFY(!QFileInfo(settingsFile()).isDir() || QDir().rmdir(settingsFile()));
        QVERIFY(writeFile(settingsFile(), content));
        m_window->close();
        QVERIFY(m_messages.told.last().text.contains(m_session->language.text("more.settingsKept")));
        QVERIFY(contentOf(settingsFile()) == content);
        m_messages = {};
        QVERIFY(writeFile(settingsFile(), QByteArray("tree=0\r\n").repeated(2'500'000)));
    }
}

void tst_Settings::keepsColumnsAndPlaces()
{
    start();
    QHeaderView& before = *details().horizontalHeader();
    before.resizeSection(ResultColumn::Url, 123);
    before.moveSection(before.visualIndex(ResultColumn::Url), 1);
    before.hideSection(ResultColumn::Language);
    choose("m_einheit(1)");
    m_window->setGeometry(10, 40, 780, 400);
    m_window->showMaximized();
    restart();
    const QHeaderView& after = *details().horizontalHeader();
    QCOMPARE(after.sectionSize(ResultColumn::Url), 123);
    QCOMPARE(after.visualIndex(ResultColumn::Url), 1);
    QVERIFY(after.isSectionHidden(ResultColumn::Language));
    QCOMPARE(m_session->filter.sizeUnit, 1024);
    QVERIFY(the<QAction>("m_einheit(1)").isChecked());
    QCOMPARE(the<QLabel>("lbl_sizeUnit").text(), QStringLiteral("kiB"));
    QVERIFY(m_window->isMaximized());
    m_window->showNormal();
    QCOMPARE(m_window->geometry(), QRect(10, 40, 780, 400));

    shownDownloads().setGeometry(33, 77, 500, 300);
    restart();
    quit(); // a run in which it is not opened keeps its place
    start();
    QCOMPARE(shownDownloads().geometry(), QRect(33, 77, 500, 300));
    quit();

    // A window whose screen is gone comes back on another screen.
    start();
    m_window->move(50'000, 50'000);
    restart();
    QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().contains(m_window->geometry()));
}

void tst_Settings::remembersTheSplitterOfAHiddenTree()
{
    start();
    m_window->resize(780, 560);
    splitter().setSizes({ 250, 530 });
    const int place = splitter().sizes().constFirst();
    restart();
    QTRY_COMPARE(splitter().sizes().constFirst(), place);
    choose("m_showTree");
    restart();
    choose("m_showTree");
    QTRY_COMPARE(splitter().sizes().constFirst(), place);
}

void tst_Settings::fitsWindowsOnTheScreen_data()
{
    const auto row = table<QRect, QRect>("wanted", "fitted");
    row("inside", { 200, 50, 300, 200 }, { 200, 50, 300, 200 });
    row("too far to the right and down", { 950, 550, 300, 200 }, { 800, 420, 300, 200 });
    row("too far to the left and up", { -50, -50, 300, 200 }, { 100, 20, 300, 200 });
    row("larger than the screen", { 500, 500, 5000, 200 }, { 100, 420, 1000, 200 });
}

void tst_Settings::fitsWindowsOnTheScreen()
{
    QFETCH(QRect, wanted);
    QTEST(windowPlace::fitted(wanted, { 100, 20, 1000, 600 }), "fitted");
}

void tst_Settings::takesLimitsFromItsOwnFile()
{
    start();
    QCOMPARE(m_session->search.limits().items, 10'000'000);
    QCOMPARE(m_session->web.silenceLimit.count(), 0);
    quit();
    QByteArray views = contentOf(file("data/views.ini"));
    for (const char* line : { "timeLimit=", "mostUrls=", "mostMebibytes=" })
        views.replace(QByteArray(line + QByteArray("0")), QByteArray(line + QByteArray("7")));
    QVERIFY(writeFile(file("data/views.ini"), views));
    for (int run = 0; run < 2; ++run) { // the second one with the file that the first has written
        start();
        QCOMPARE(m_session->search.limits().items, 7);
        QCOMPARE(m_session->search.limits().bytes, 7 * 1024 * 1024);
        QCOMPARE(m_session->web.silenceLimit.count(), 7);
        quit();
    }
}

void tst_Settings::damagedViewsAreHarmless()
{
    QByteArrayList contents { QByteArray(100, '\xff'), "main_place=x\nmain_columns=\xff\x01\nlang_below=x\n",
        "Filter_MIMEUnlisted=x/y\nDLM_place=99999999999 1\nDLM_columns=1\nDLTarget=\xff\nlangfile=\n" };
    for (const char* last : { "6:99", "x:99", "-1:99", "7:-9", "7:99999999" })
        contents += QByteArray("main_columns=0:99 1:99 2:99 3:99 4:99 5:99 6:99 ") + last;
    for (const QByteArray& content : contents) {
        QVERIFY(writeFile(file("data/views.ini"), content));
        start();
        QVERIFY(shownDownloads().isVisible());
        for (int column = 0; column < ResultColumn::Count; ++column) {
            const int width = details().horizontalHeader()->sectionSize(column);
            QVERIFY2(width > 10 && width != 99, content.constData());
        }
    }
}

QTEST_MAIN(tst_Settings)

#include "tst_Settings.moc"
