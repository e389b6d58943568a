// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Settings.h"
#include "app/WindowPlace.h"
#include "base/allgemein.h"
#include "results/MimeModel.h"
#include "support/Table.h"
#include "support/WindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QListView>
#include <QListWidget>
#include <QScreen>
#include <QSpinBox>
#include <QSplitter>

#include <array>

/// Starts the program, changes what can be changed, ends it and starts it again.
class tst_Settings : public WindowFixture {
    Q_OBJECT

private slots:
    void everySettingSurvives();
    void startsWithoutFiles_data();
    void startsWithoutFiles();
    void takesWhatItCan_data();
    void takesWhatItCan();
    void resumesALanguageFile();
    void quitsWhereNothingCanBeWritten();
    void leavesWhatItCouldNotRead();
    void keepsColumnsAndPlaces();
    void remembersTheSplitterOfAHiddenTree();
    void fitsWindowsOnTheScreen_data();
    void fitsWindowsOnTheScreen();
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

/// The controls of a window and of its dialogs with what they hold.
QStringList statesOf(const QWidget& window)
{
    QStringList states;
    for (const QObject* const object : window.findChildren<QObject*>()) {
        // The combo box for the User-Agent text begins anew with each start of the program.
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
    for (const char* window : { "m_searchNew", "m_requests" }) // they show the options when they are opened
        choose(window);
    return statesOf(*m_window);
}

QByteArray tst_Settings::boxText() const
{
    const auto box = Settings::report(m_loaded, m_session->language);
    QString text = box ? box->title + u'\n' + box->text : QString();
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
        the<QSpinBox>(field).setValue(number++);
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
    QVERIFY(writeFile(settingsFile(), "lang=0\r\nmain_height=3000\r\n" + lines));
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

    // Without the file beside the settings, the first language is the one below.
    quit();
    QVERIFY(QFile::remove(file("data/views.ini")));
    QVERIFY(writeFile(file("default_lang.ini"), "2"));
    start();
    QCOMPARE(m_session->language.text("lang.dlLoading"), QStringLiteral("Téléchargement en cours"));

    // It may be back next time.
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
    // There and not readable, as on a server that does not answer, but back at the end; and too large to be read whole.
    QVERIFY(QDir().mkpath(settingsFile()));
    for (const QByteArray& content : { QByteArray("tree=0\r\n"), QByteArray("tree=0\r\n").repeated(2'500'000) }) {
        start();
        QVERIFY2(boxText().contains('@'), boxText().constData());
        QVERIFY(!QFileInfo(settingsFile()).isDir() || QDir().rmdir(settingsFile()));
        QVERIFY(writeFile(settingsFile(), content));
        m_window->close();
        QVERIFY(m_messages.told.value(0).text.contains(m_session->language.text("more.settingsKept")));
        QVERIFY(contentOf(settingsFile()) == content);
        m_messages = {};
        QVERIFY(writeFile(settingsFile(), QByteArray("tree=0\r\n").repeated(2'500'000)));
    }
}

void tst_Settings::keepsColumnsAndPlaces()
{
    start();
    QHeaderView& before = *details().horizontalHeader();
    before.resizeSection(FoundModel::Url, 123);
    before.moveSection(before.visualIndex(FoundModel::Url), 1);
    before.hideSection(FoundModel::Language);
    m_window->setGeometry(10, 40, 780, 400);
    m_window->showMaximized();
    restart();
    const QHeaderView& after = *details().horizontalHeader();
    QCOMPARE(after.sectionSize(FoundModel::Url), 123);
    QCOMPARE(after.visualIndex(FoundModel::Url), 1);
    QVERIFY(after.isSectionHidden(FoundModel::Language));
    QVERIFY(m_window->isMaximized());
    m_window->showNormal();
    QCOMPARE(m_window->geometry(), QRect(10, 40, 780, 400));

    shownDownloads().setGeometry(33, 77, 500, 300);
    restart();
    quit(); // a session that does not open it keeps its place
    start();
    QCOMPARE(shownDownloads().geometry(), QRect(33, 77, 500, 300));
    quit();

    // A screen that is gone takes no window with it.
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

void tst_Settings::damagedViewsAreHarmless()
{
    QByteArrayList contents { QByteArray(100, '\xff'), "[main]\nplace=@Point(x)\ncolumns=@ByteArray(\\xff\\x1)\n",
        "[filter]\nunlistedTypes=@Invalid()\n[DLManager]\nplace=@Variant(\\0\\0)\ncolumns=1\n" };
    for (const char* last : { "", "6:99", "8:99", "-1:99", "7:-9", "7:99999999" })
        contents += QByteArray("[main]\ncolumns=0:99 1:99 2:99 3:99 4:99 5:99 6:99 ") + last;
    for (const QByteArray& content : contents) {
        QVERIFY(writeFile(file("data/views.ini"), content));
        start();
        QVERIFY(shownDownloads().isVisible());
        for (int column = 0; column < FoundModel::ColumnCount; ++column) {
            const int width = details().horizontalHeader()->sectionSize(column);
            QVERIFY2(width > 10 && width != 99, content.constData());
        }
    }
}

QTEST_MAIN(tst_Settings)

#include "tst_Settings.moc"
