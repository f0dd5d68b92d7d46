// SPDX-License-Identifier: LGPL-2.1-or-later
// The import form through its widgets: pairing by double click, the definition file through the
// real file dialogs, and the run from the start button.
#include "dataaccess.h"
#include "importcommonform.h"
#include "scratchfiles.h"
#include "scriptedmessages.h"
#include "tcfiledialog.h"
#include "testdatabase.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace Qt::StringLiterals;
using kxtest::ScriptedMessages;

namespace {

// Answers the dialog with this file as soon as it is shown.
void chooseFile(TCFileDialog *dialog, const QString &fileName)
{
    auto *timer = new QTimer(dialog);
    QObject::connect(timer, &QTimer::timeout, dialog, [dialog, fileName, timer] {
        if (QFileDialog *shown = dialog->dialog()) {
            timer->stop();
            timer->deleteLater();
            // Typed into the name field: the dialog's folder listing may not be read yet.
            shown->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(fileName);
            static_cast<QDialog *>(shown)->accept(); // the file dialog's own accept checks the name
        }
    });
    timer->start(10);
}

void doubleClick(QTreeWidget *list, int row)
{
    QTreeWidgetItem *item = list->topLevelItem(row);
    list->setCurrentItem(item);
    const QRect rect = list->visualItemRect(item);
    // A double click follows a click, as the view expects (it compares with the pressed row).
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

class ImportFormTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        table = new TCDataAccess({ u"IMP_FORM"_s,
                                   { { u"ID"_s, u"Varchar(43)"_s }, { u"PLZ"_s, u"VarChar(10)"_s },
                                     { u"ORT"_s, u"VarChar(40)"_s, 0, u"Ort"_s } } },
                                 nullptr);
        table->Connection = compSqlConnection;
        table->AlterOrCreateTable();
        data = m_scratch.filePath(u"orte.csv"_s);
        kxtest::writeFile(data, "64283;Darmstadt\r\n64285;Darmstadt-Bessungen\r\n");
        form = new TImportCommonForm;
        form->sourceDataAccess = table;
        form->show();
        form->LoadColumnsFromFile(data);
    }
    void TearDown() override
    {
        delete form;
        delete table;
        kxtest::DatabaseTest::TearDown();
    }

    QStringList assigned() const
    {
        QStringList columns;
        for (int i = 0; i < form->DatabaseColumnDefinitionList->topLevelItemCount(); ++i)
            columns << form->DatabaseColumnDefinitionList->topLevelItem(i)->text(1);
        return columns;
    }

    TCDataAccess *table = nullptr;
    TImportCommonForm *form = nullptr;
    QString data;
};

TEST_F(ImportFormTest, PairingByDoubleClickAndResetKeepsColumnsAndKeys)
{
    ASSERT_EQ(form->ImportDefinitionList->topLevelItemCount(), 2);
    EXPECT_EQ(form->ImportDefinitionList->topLevelItem(1)->text(1), u"Darmstadt"_s);
    EXPECT_EQ(form->DatabaseColumnDefinitionList->topLevelItem(1)->text(0), u"Ort.IMP_FORM"_s);

    doubleClick(form->DatabaseColumnDefinitionList, 1); // a field selected, no column yet: nothing paired
    EXPECT_EQ(assigned(), (QStringList{ QString(), QString() }));
    doubleClick(form->ImportDefinitionList, 1);
    form->DatabaseColumnDefinitionList->setCurrentItem(form->DatabaseColumnDefinitionList->topLevelItem(0));
    doubleClick(form->ImportDefinitionList, 0);
    EXPECT_EQ(assigned(), (QStringList{ u"1"_s, u"2"_s }));
    EXPECT_EQ(form->fields()[1].SubItems[0], u"2"_s);
    doubleClick(form->DatabaseColumnDefinitionList, 0);
    EXPECT_EQ(assigned(), (QStringList{ QString(), u"2"_s }));

    form->DatabasePrimaryKeyEdit->setCurrentText(u"PLZ.IMP_FORM"_s);
    form->ImportPrimaryKeyEdit->setCurrentText(u"Spalte 1"_s);
    form->DoNew->trigger();
    EXPECT_EQ(assigned(), (QStringList{ QString(), QString() }));
    EXPECT_EQ(form->ImportDefinitionList->topLevelItemCount(), 2);
    EXPECT_EQ(form->DatabasePrimaryKeyEdit->currentText(), u"PLZ.IMP_FORM"_s);
    EXPECT_EQ(form->ImportPrimaryKeyEdit->currentText(), u"Spalte 1"_s);
}

TEST_F(ImportFormTest, DefinitionSavedLoadedAndRun)
{
    form->DatabaseColumnDefinitionList->setCurrentItem(form->DatabaseColumnDefinitionList->topLevelItem(1));
    doubleClick(form->ImportDefinitionList, 1);
    form->DatabaseColumnDefinitionList->setCurrentItem(form->DatabaseColumnDefinitionList->topLevelItem(0));
    doubleClick(form->ImportDefinitionList, 0);
    form->OpenDialog1->FileName = data;
    form->ImportPrimaryKeyEdit->setCurrentText(u"Spalte 1"_s);
    const QString definition = m_scratch.filePath(u"orte.iDef"_s);
    {
        ScriptedMessages user({ { u"Definition wurde gespeichert."_s } });
        chooseFile(form->SaveDialog1, definition);
        form->DoSave->trigger();
    }
    form->DoNew->trigger();
    {
        ScriptedMessages user({ { u"Definition wurde geladen."_s } });
        chooseFile(form->OpenDialog2, definition);
        form->DoOpen->trigger();
    }
    EXPECT_EQ(assigned(), (QStringList{ u"1"_s, u"2"_s }));
    EXPECT_EQ(form->ImportPrimaryKeyEdit->currentText(), u"Spalte 1"_s);

    // A definition naming a field the table does not have is refused and changes nothing.
    const QString wrong = kxtest::writeFile(m_scratch.filePath(u"falsch.iDef"_s), "Strasse.IMP_FORM=1\r\n");
    {
        ScriptedMessages user({ { u"Die Definition wurde nicht geladen:\r\nDas Feld \"Strasse.IMP_FORM\" *"_s } });
        EXPECT_FALSE(form->LoadDefinition(wrong));
    }
    EXPECT_EQ(assigned(), (QStringList{ u"1"_s, u"2"_s }));

    // Closed and shown again, the form still knows its tables.
    const QList<ScriptedMessages::Step> questions{ { u"Daten wirklich importieren?"_s, mrYes },
                                                   { u"Wollen Sie die bisherigen Daten leeren?"_s, mrNo },
                                                   { u"Sind Sie sich wirklich sicher?"_s, mrYes } };
    form->close();
    form->show();
    {
        ScriptedMessages user(questions + QList<ScriptedMessages::Step>{ { u"Daten wurden importiert."_s } });
        QTest::mouseClick(form->StartImportButton, Qt::LeftButton);
    }
    EXPECT_EQ(kxtest::rows(u"select PLZ, ORT from IMP_FORM order by PLZ"_s),
              (QStringList{ u"64283|Darmstadt"_s, u"64285|Darmstadt-Bessungen"_s }));
    EXPECT_EQ(form->ProgressBar->value(), 0);
    EXPECT_EQ(form->lastSummary().LinesRead, 2);

    // A run that ends with an error gives the cursor back as well.
    kxtest::exec(u"drop table IMP_FORM"_s);
    {
        ScriptedMessages user(questions + QList<ScriptedMessages::Step>{ { u"*"_s } });
        QTest::mouseClick(form->StartImportButton, Qt::LeftButton);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    table->AlterOrCreateTable();

    // The data file gone: the pairing still loads, with a warning.
    QFile::remove(data);
    form->DoNew->trigger();
    {
        ScriptedMessages user({ { importMissingFileMessage(data) }, { u"Definition wurde geladen."_s } });
        chooseFile(form->OpenDialog2, definition);
        form->DoOpen->trigger();
    }
    EXPECT_EQ(assigned(), (QStringList{ u"1"_s, u"2"_s }));
    EXPECT_EQ(form->ImportDefinitionList->topLevelItemCount(), 0);
}

} // namespace
