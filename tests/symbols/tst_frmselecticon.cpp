// SPDX-License-Identifier: LGPL-2.1-or-later
// The icon selection form and its symbols view on the offscreen platform: the category
// ordering, choosing by OK and by double click, cancelling, and reading stored references.
#include "symbolstest.h"

#include "frmselecticoncommon.h"
#include "symbolsview.h"
#include "whenshown.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

TEST(SortSymbolsByCategory, KeepsItsPartialOrdering)
{
    // Worked by hand: one pass per i from n down to 3, comparing (j-1, j) for j = 2..i.
    const struct {
        const char *name;
        QList<const char *> categories; // nullptr: no German texts
        QList<int> order;
    } cases[] = {
        { "three items keep their order", { "C", "B", "A" }, { 0, 1, 2 } },
        { "four: item 0 stays, items 1 and 2 are not compared again", { "D", "C", "B", "A" }, { 0, 2, 3, 1 } },
        { "ten in reverse: the two smallest stay reversed", { "J", "I", "H", "G", "F", "E", "D", "C", "B", "A" },
          { 0, 8, 9, 7, 6, 5, 4, 3, 2, 1 } },
        { "an item without texts holds its place",
          { "Z", "Gefahren", "Fahrzeuge", nullptr, "Einheiten", "Fahrzeuge", "Anhänger", "Gefahren", "Einheiten", "Boote" },
          { 0, 2, 1, 3, 6, 9, 4, 8, 5, 7 } },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        TItemSymbolManager symbols;
        for (qsizetype i = 0; i < c.categories.size(); ++i) {
            auto *item = symbols.CreateItem();
            item->Guid = QString::number(i);
            TTexts texts(c.categories[i] ? u"de"_s : u"en"_s);
            texts.SetCategory(QString::fromUtf8(c.categories[i] ? c.categories[i] : "A"));
            item->Texts.Add(texts);
            symbols.AddItem(item);
        }
        SortSymbolsByCategory(&symbols, u"de"_s);
        QStringList expected;
        for (int i : c.order)
            expected << QString::number(i);
        EXPECT_EQ(SymbolsTest::ids(symbols), expected);
    }
}

class SelectIconTest : public SymbolsTest
{
protected:
    void SetUp() override
    {
        SymbolsTest::SetUp();
        setting(u"SymbolType"_s, u"2"_s);
        image(path(u"sym/Eigene/Hydrant.png"_s), Qt::blue);
        pack(path(u"app/symbols.pak"_s), { { u"{lf}"_s, u"Fahrzeuge"_s }, { u"{gas}"_s, u"Gefahren"_s } });
    }
    static QToolButton *button(TfrmSelectIconForm *form, const QString &id)
    {
        TLumSheetItem *item = form->fSymbolsView->Manager()->ItemByGuid(id);
        return item ? form->fSymbolsView->ButtonOf(item) : nullptr;
    }
};

TEST_F(SelectIconTest, FormShowsTheSymbolsInTheirCategories)
{
    TfrmSelectIconForm form;
    EXPECT_EQ(form.fSymbolsView->Categories(), (QStringList{ u"Eigene"_s, u"Fahrzeuge"_s, u"Gefahren"_s }));
    EXPECT_EQ(button(&form, u"{lf}"_s)->size(), QSize(64, 64));
    QTest::mouseClick(button(&form, u"{lf}"_s), Qt::LeftButton);
    EXPECT_EQ(form.SelectionLabel->text(), u"Auswahl: {lf} (Fahrzeuge)"_s);
    form.fSymbolsView->ApplyFilter(u"gefahr"_s);
    EXPECT_EQ(form.fSymbolsView->Categories(), QStringList{ u"Gefahren"_s });
    EXPECT_EQ(button(&form, u"{lf}"_s), nullptr);
}

TEST_F(SelectIconTest, SelectSymbolHandsBackTheReference)
{
    const QString hydrant = path(u"sym/Eigene/Hydrant.png"_s);
    enum Way { ClickAndOk, DoubleClick, OkWithoutSelection, Cancel };
    const struct {
        const char *name;
        Way way;
        QString symbol;
        bool result;
        QString name_;
        TEvSymbolType type;
    } cases[] = {
        { "pack symbol with OK", ClickAndOk, u"{gas}"_s, true, u"{gas}"_s, evSymIsFromPak },
        { "file symbol by double click", DoubleClick, u"Eigene/Hydrant.png"_s, true, hydrant, evSymIsFile },
        { "OK without a selection", OkWithoutSelection, {}, false, u"alt"_s, evSymIsFile },
        { "cancelled", Cancel, u"{gas}"_s, false, u"alt"_s, evSymIsFile },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QString name = u"alt"_s;
        TEvSymbolType type = evSymIsFile;
        QLabel picture;
        kxtest::whenShown<TfrmSelectIconForm>([&c](TfrmSelectIconForm *form) {
            QToolButton *symbol = c.symbol.isEmpty() ? nullptr : button(form, c.symbol);
            if (c.way == DoubleClick) {
                QTest::mouseDClick(symbol, Qt::LeftButton);
                return;
            }
            if (symbol)
                QTest::mouseClick(symbol, Qt::LeftButton);
            QTest::mouseClick(c.way == Cancel ? form->CancelButton : form->OkButton, Qt::LeftButton);
        });
        EXPECT_EQ(TfrmSelectIconForm::SelectSymbol(name, type, &picture), c.result);
        EXPECT_EQ(name, c.name_);
        EXPECT_EQ(type, c.type);
        EXPECT_EQ(picture.pixmap().isNull(), !c.result);
        if (c.result) {
            EXPECT_EQ(picture.pixmap().toImage().pixelColor(0, 0), QColor(Qt::blue));
        }
    }
}

TEST_F(SelectIconTest, LoadSymbolReadsAStoredReference)
{
    const struct {
        const char *name;
        QString reference;
        TEvSymbolType type;
        bool result;
        bool picture; // a picture afterwards (each case starts with one)
    } cases[] = {
        { "empty name clears", {}, evSymIsFromPak, false, false },
        { "file", path(u"sym/Eigene/Hydrant.png"_s), evSymIsFile, true, true },
        { "missing file clears", path(u"sym/fehlt.png"_s), evSymIsFile, false, false },
        { "pack symbol", u"{lf}"_s, evSymIsFromPak, true, true },
        { "unknown pack symbol leaves the picture", u"{fehlt}"_s, evSymIsFromPak, false, true },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QLabel picture;
        QPixmap before(3, 3);
        before.fill(Qt::green);
        picture.setPixmap(before);
        EXPECT_EQ(TfrmSelectIconForm::LoadSymbol(c.reference, c.type, &picture), c.result);
        EXPECT_EQ(!picture.pixmap().isNull(), c.picture);
        if (c.result) {
            EXPECT_EQ(picture.pixmap().toImage().pixelColor(0, 0), QColor(Qt::blue));
        }
    }
}

} // namespace
