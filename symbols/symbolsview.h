// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <kxcommon/kxcommon_export.h>

#include "symbolspackcommon.h"

#include <QHash>
#include <QWidget>

class QAbstractButton;
class QButtonGroup;
class QLineEdit;
class QScrollArea;
class QToolButton;
class QVBoxLayout;

// The symbols as square buttons under collapsible category headers, with a text filter above.
// The view owns its pack manager and loads it with the configured symbol sources when made; a
// click selects a symbol, a double click raises DblClick. Names and categories are shown in the
// language of LanguageCode (German when a symbol has no texts in it). The buttons are made by
// the first ApplyFilter, so that an owner can order the items first.
class KXCOMMON_EXPORT TSymbolsView : public QWidget
{
    Q_OBJECT

public:
    explicit TSymbolsView(QWidget *parent = nullptr);
    ~TSymbolsView() override;

    TSymbolsPackIconManager *Manager() { return &m_manager; }
    int ButtonSize() const { return m_buttonSize; }
    void SetButtonSize(int size);
    const QString &LanguageCode() const { return m_language; }
    void SetLanguageCode(const QString &code);

    // Shows the symbols whose name or category holds the text (any case); empty shows all.
    // Rebuilds the buttons from the manager's items in their current order.
    void ApplyFilter(const QString &filter);
    QString Filter() const;
    // Opens or closes a category.
    void SetCategoryExpanded(const QString &category, bool expanded);
    QStringList Categories() const { return m_categoryOrder; }

    TLumSheetItem *SelectedItem() const;
    void SetSelectedItem(TLumSheetItem *item);
    // The button of a symbol, or nullptr when it is not shown.
    QToolButton *ButtonOf(const TLumSheetItem *item) const;

    // The shown name and category of a symbol.
    QString NameOf(TLumSheetItem *item) const;
    QString CategoryOf(TLumSheetItem *item) const;

Q_SIGNALS:
    void DblClick();
    void SelectionChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const TTexts *textsOf(TLumSheetItem *item) const;
    void rebuild();
    void arrange();

    struct Section
    {
        QString category;
        QToolButton *header;
        QWidget *body;
        QList<QToolButton *> buttons;
    };
    QList<Section> m_shown;
    Section makeSection(const QString &category);
    QToolButton *makeButton(TLumSheetItem *item, QWidget *parent);

    TSymbolsPackIconManager m_manager;
    QLineEdit *m_filter;
    QScrollArea *m_scroll;
    QWidget *m_content;
    QVBoxLayout *m_sections;
    QButtonGroup *m_group;
    QHash<QAbstractButton *, TLumSheetItem *> m_items;
    QHash<QString, bool> m_collapsed;
    QStringList m_categoryOrder;
    int m_buttonSize = 48;
    int m_columns = 0;
    bool m_built = false; // nothing is shown before the first ApplyFilter
    QString m_language = QStringLiteral("de");
};
