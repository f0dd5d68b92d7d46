// SPDX-License-Identifier: LGPL-2.1-or-later
// The document open and save dialogs through their real widgets: the search paths offered, the
// save browser's ".JPG" rule and its name rule, and both ways of choosing.
#include "docopencommon.h"
#include "docsavecommon.h"
#include "globals.h"
#include "parameter.h"
#include "tcfiledialog.h"
#include "scratchfiles.h"
#include "scriptedmessages.h"
#include "testdatabase.h"
#include "whenshown.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

class DocDialogsTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        docs = m_scratch.filePath(u"Dokumente"_s);
        for (const QString &file : { u"Scan.JPG"_s, u"alt.jpg"_s, u"Scan.jpeg"_s, u"Scan.png"_s, u"Bericht.pdf"_s,
                                     u"Bilder.jpg/Lage.png"_s }) {
            kxtest::writeFile(docs + u'/' + file);
        }
        cSearchPathList = { docs, QString(), docs.toUpper(), m_scratch.path() };
    }
    static void onlySearchPath(bool only)
    {
        TCParameter().WriteBool(u"Settings\\Dokuments"_s, u"OnlyUseSearchPath"_s, only);
    }
    // The names the list shows, once the file system model has read the folder.
    static QStringList listed(QListView *list, int expected)
    {
        QStringList names;
        (void)QTest::qWaitFor([&] {
            names.clear();
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
                names << list->model()->index(row, 0, list->rootIndex()).data().toString();
            return names.size() >= expected;
        }, 5000);
        names.sort();
        return names;
    }
    QString docs;
};

TEST_F(DocDialogsTest, SearchPathsOnceAndTheRootWithoutThem)
{
    EXPECT_EQ(documentSearchPaths(), (QStringList{ docs, m_scratch.path() })) << "one entry per path whatever its case";
    TDocOpenCommonForm form;
    EXPECT_EQ(form.SearchIn->count(), 2);
    EXPECT_EQ(form.Root(), docs);
    QDir().mkpath(m_scratch.filePath(u"Privat"_s)); // beside the search path: not offered
    form.SetRoot(docs);
    // The folders are read in the background: give a sibling time to turn up. (The filter
    // re-sorts as they come, so the root is asked for afresh each time.)
    const auto shown = [&form] { return form.ShellTreeView1->model()->rowCount(form.ShellTreeView1->rootIndex()); };
    (void)QTest::qWaitFor([&] { return shown() > 1; }, 1500);
    ASSERT_EQ(shown(), 1);
    const QModelIndex top = form.ShellTreeView1->rootIndex();
    EXPECT_EQ(form.ShellTreeView1->model()->index(0, 0, top).data().toString(), u"Dokumente"_s);
    EXPECT_EQ(listed(form.ShellListView1, 5), (QStringList{ u"Bericht.pdf"_s, u"Scan.JPG"_s, u"Scan.jpeg"_s, u"Scan.png"_s,
                                                            u"alt.jpg"_s }))
        << "files only";

    cSearchPathList.clear();
    TDocSaveCommonForm computer;
    EXPECT_EQ(computer.SearchIn->count(), 0);
    EXPECT_EQ(computer.Root(), u"/"_s);
}

TEST_F(DocDialogsTest, SaveBrowserShowsFoldersAndJpegsByTheirPath)
{
    TDocSaveCommonForm form;
    EXPECT_EQ(listed(form.ShellListView1, 3), (QStringList{ u"Bilder.jpg"_s, u"Scan.JPG"_s, u"alt.jpg"_s }));
    form.SetRoot(docs + u"/Bilder.jpg"_s);
    EXPECT_EQ(listed(form.ShellListView1, 1), QStringList{ u"Lage.png"_s }) << "the folder's name lets its files through";
}

TEST_F(DocDialogsTest, SavingThroughTheBrowserNeedsAName)
{
    onlySearchPath(true);
    QString path = u"alt"_s;
    bool stayedOpen = false;
    kxtest::whenShown<TDocSaveCommonForm>([&](TDocSaveCommonForm *form) {
        QTest::mouseClick(form->OkButton, Qt::LeftButton); // no name yet
        stayedOpen = form->isVisible();
        listed(form->ShellListView1, 3);
        QListView *list = form->ShellListView1;
        for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
            if (list->model()->index(row, 0, list->rootIndex()).data().toString() == u"Scan.JPG"_s)
                list->setCurrentIndex(list->model()->index(row, 0, list->rootIndex()));
        EXPECT_EQ(form->SaveName->text(), u"Scan.JPG"_s);
        for (const QString &outside : { u"/tmp/x.jpg"_s, u"../x.jpg"_s, u"Unter/x.jpg"_s }) { // a name, no folder
            kxtest::ScriptedMessages message({ { u"Bitte nur einen Dateinamen angeben*"_s } });
            form->SaveName->setText(outside);
            QTest::mouseClick(form->OkButton, Qt::LeftButton);
            EXPECT_TRUE(form->isVisible());
        }
        form->SaveName->setText(u"Einsatz 12.jpg"_s);
        QTest::mouseClick(form->OkButton, Qt::LeftButton);
    });
    EXPECT_TRUE(SaveCommonDocument(path));
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(path, docs + u"/Einsatz 12.jpg"_s);

    kxtest::whenShown<TDocBrowserForm>([](TDocBrowserForm *shown) { QTest::mouseClick(shown->CancelButton, Qt::LeftButton); });
    EXPECT_FALSE(SaveCommonDocument(path));
    EXPECT_TRUE(path.isEmpty());
}

TEST_F(DocDialogsTest, StandardDialogsWithSeveralFiles)
{
    onlySearchPath(false);
    const struct {
        const char *name;
        bool multi;
        QString typed, path;
    } cases[] = {
        { "several files, a line each", true, u"\"Bericht.pdf\" \"Scan.png\""_s,
          docs + u"/Bericht.pdf\r\n"_s + docs + u"/Scan.png\r\n"_s },
        { "one file", false, u"Bericht.pdf"_s, docs + u"/Bericht.pdf"_s },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QString path;
        kxtest::whenShown<QFileDialog>([&c, this](QFileDialog *dialog) {
            dialog->setDirectory(docs);
            dialog->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(c.typed);
            static_cast<QDialog *>(dialog)->accept();
        });
        EXPECT_TRUE(openCommonDocument(path, c.multi));
        EXPECT_EQ(path, c.path);
    }
}

} // namespace
