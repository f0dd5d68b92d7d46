// SPDX-License-Identifier: LGPL-2.1-or-later
#include "symbolsview.h"

#include <QButtonGroup>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int spacing = 4;

// The picture of a symbol fitted into the button; a metafile or an empty picture shows its
// file type as text.
QIcon symbolIcon(TLumSheetItem *item, int size)
{
    QImage image;
    try {
        image = item->Graphic()->Image();
    } catch (const std::exception &) {
        // deliberate: a damaged symbol shows as an empty button instead of hiding the others
    }
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    if (!image.isNull()) {
        const QImage scaled = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        painter.drawImage((size - scaled.width()) / 2, (size - scaled.height()) / 2, scaled);
    } else {
        painter.setPen(Qt::darkGray);
        painter.drawRect(0, 0, size - 1, size - 1);
        painter.drawText(pixmap.rect(), Qt::AlignCenter, u"?"_s);
    }
    return QIcon(pixmap);
}

} // namespace

TSymbolsView::TSymbolsView(QWidget *parent)
    : QWidget(parent)
    , m_filter(new QLineEdit(this))
    , m_scroll(new QScrollArea(this))
    , m_content(new QWidget)
    , m_sections(new QVBoxLayout(m_content))
    , m_group(new QButtonGroup(this))
{
    setObjectName(u"SymbolsView"_s);
    m_filter->setObjectName(u"Filter"_s);
    m_filter->setPlaceholderText(u"Symbole filtern (Name oder Kategorie)"_s);
    m_filter->setClearButtonEnabled(true);
    m_scroll->setWidget(m_content);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_sections->setContentsMargins(spacing, spacing, spacing, spacing);
    m_sections->setSpacing(spacing);
    m_group->setExclusive(true);
    connect(m_group, &QButtonGroup::buttonToggled, this, [this](QAbstractButton *, bool checked) {
        if (checked)
            Q_EMIT SelectionChanged();
    });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filter);
    layout->addWidget(m_scroll, 1);
    connect(m_filter, &QLineEdit::textEdited, this, &TSymbolsView::ApplyFilter);
    m_scroll->viewport()->installEventFilter(this); // the columns follow the visible width

    m_manager.Load(&m_manager);
}

TSymbolsView::~TSymbolsView() = default;

void TSymbolsView::SetButtonSize(int size)
{
    m_buttonSize = size;
    if (m_built)
        rebuild();
}

void TSymbolsView::SetLanguageCode(const QString &code)
{
    m_language = code;
    if (m_built)
        rebuild();
}

QString TSymbolsView::Filter() const
{
    return m_filter->text();
}

void TSymbolsView::ApplyFilter(const QString &filter)
{
    if (m_filter->text() != filter)
        m_filter->setText(filter);
    rebuild();
}

const TTexts *TSymbolsView::textsOf(TLumSheetItem *item) const
{
    const TTexts *texts = item->Texts.ByLanguage(m_language);
    if (!texts)
        texts = item->Texts.ByLanguage(u"de"_s);
    return texts ? texts : (item->Texts.Count() > 0 ? &item->Texts.Item(0) : nullptr);
}

QString TSymbolsView::NameOf(TLumSheetItem *item) const
{
    const TTexts *texts = textsOf(item);
    return texts ? texts->GetName() : item->Guid;
}

QString TSymbolsView::CategoryOf(TLumSheetItem *item) const
{
    const TTexts *texts = textsOf(item);
    return texts ? texts->GetCategory() : QString();
}

TSymbolsView::Section TSymbolsView::makeSection(const QString &category)
{
    Section section{ category, new QToolButton(m_content), new QWidget(m_content), {} };
    const bool open = !m_collapsed.value(category);
    section.header->setObjectName(u"Kategorie "_s + category);
    section.header->setCheckable(true);
    section.header->setChecked(open);
    section.header->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    section.header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    section.header->setAutoRaise(true);
    section.header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    section.body->setVisible(open);
    auto *grid = new QGridLayout(section.body);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(spacing);
    grid->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    connect(section.header, &QToolButton::toggled, this, [this, category](bool expanded) {
        SetCategoryExpanded(category, expanded);
    });
    m_sections->addWidget(section.header);
    m_sections->addWidget(section.body);
    return section;
}

QToolButton *TSymbolsView::makeButton(TLumSheetItem *item, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(item->Guid);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFixedSize(m_buttonSize, m_buttonSize);
    button->setIconSize(QSize(m_buttonSize - 8, m_buttonSize - 8));
    button->setIcon(symbolIcon(item, m_buttonSize - 8));
    button->setToolTip(NameOf(item));
    button->installEventFilter(this); // for the double click
    m_group->addButton(button);
    m_items.insert(button, item);
    return button;
}

void TSymbolsView::rebuild()
{
    m_built = true;
    TLumSheetItem *selected = SelectedItem();
    for (const Section &section : std::as_const(m_shown)) {
        delete section.header;
        delete section.body;
    }
    m_shown.clear();
    m_items.clear();
    m_categoryOrder.clear();
    m_columns = 0;
    if (auto *stretch = m_sections->itemAt(m_sections->count() - 1); stretch && stretch->spacerItem())
        delete m_sections->takeAt(m_sections->count() - 1);

    const QString filter = m_filter->text().trimmed();
    QHash<QString, qsizetype> sectionOf;
    for (int i = 0; i < m_manager.Count(); ++i) {
        TLumSheetItem *item = m_manager.Item(i);
        const QString name = NameOf(item);
        const QString category = CategoryOf(item);
        if (!filter.isEmpty() && !name.contains(filter, Qt::CaseInsensitive)
            && !category.contains(filter, Qt::CaseInsensitive))
            continue;
        if (!sectionOf.contains(category)) {
            sectionOf.insert(category, m_shown.size());
            m_shown.append(makeSection(category));
            m_categoryOrder << category;
        }
        Section &section = m_shown[sectionOf.value(category)];
        QToolButton *button = makeButton(item, section.body);
        section.buttons << button;
        if (item == selected)
            button->setChecked(true);
    }
    for (Section &section : m_shown)
        section.header->setText(u"%1 (%2)"_s.arg(section.category.isEmpty() ? u"Ohne Kategorie"_s : section.category)
                                    .arg(section.buttons.size()));
    m_sections->addStretch(1);
    arrange();
}

void TSymbolsView::arrange()
{
    const int width = m_scroll->viewport()->width() - 2 * spacing;
    const int columns = std::max(1, (width + spacing) / (m_buttonSize + spacing));
    if (columns == m_columns)
        return;
    m_columns = columns;
    for (const Section &section : std::as_const(m_shown)) {
        auto *grid = static_cast<QGridLayout *>(section.body->layout());
        for (qsizetype i = 0; i < section.buttons.size(); ++i)
            grid->addWidget(section.buttons[i], int(i / columns), int(i % columns));
    }
}

void TSymbolsView::SetCategoryExpanded(const QString &category, bool expanded)
{
    m_collapsed[category] = !expanded;
    for (const Section &section : std::as_const(m_shown)) {
        if (section.category != category)
            continue;
        const QSignalBlocker blocker(section.header);
        section.header->setChecked(expanded);
        section.header->setArrowType(expanded ? Qt::DownArrow : Qt::RightArrow);
        section.body->setVisible(expanded);
    }
}

TLumSheetItem *TSymbolsView::SelectedItem() const
{
    return m_items.value(m_group->checkedButton());
}

void TSymbolsView::SetSelectedItem(TLumSheetItem *item)
{
    if (QToolButton *button = ButtonOf(item))
        button->setChecked(true);
}

QToolButton *TSymbolsView::ButtonOf(const TLumSheetItem *item) const
{
    for (auto it = m_items.begin(); it != m_items.end(); ++it)
        if (it.value() == item)
            return static_cast<QToolButton *>(it.key());
    return nullptr;
}

bool TSymbolsView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_scroll->viewport() && event->type() == QEvent::Resize)
        arrange();
    if (event->type() == QEvent::MouseButtonDblClick) {
        if (auto *button = qobject_cast<QAbstractButton *>(watched); button && m_items.contains(button)) {
            button->setChecked(true);
            Q_EMIT DblClick();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
