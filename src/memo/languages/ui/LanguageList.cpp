// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/languages/ui/LanguageList.h"

#include "archive/SqlText.h"
#include "memo/languages/StyleRows.h"
#include "memo/languages/ui/frmOptionsLanguage.h"

#include <QStandardItemModel>

using namespace Qt::StringLiterals;

LanguageList::LanguageList(QWidget* parent) : ListView(parent), m_languages(new QStandardItemModel(this))
{
    m_languages->setHorizontalHeaderLabels({u"Language"_s, u"Description"_s});
    setModel(m_languages);
}

void LanguageList::load(Archive& archive)
{
    for (const LanguageRow& language : readEnabledLanguages(archive)) {
        auto* name = new QStandardItem(language.name);
        name->setData(QString::number(language.id) + u" ID"_s, Qt::UserRole);
        name->setData(language.lexerCode, Qt::UserRole + 1);
        name->setCheckable(true);
        name->setCheckState(language.isVisible ? Qt::Checked : Qt::Unchecked);
        m_languages->appendRow({name, new QStandardItem(language.description)});
    }
    resizeColumnToContents(0);
    setCurrentIndex(m_languages->index(0, 0));
}

void LanguageList::save(Archive& archive) const
{
    std::vector<LanguageRow> languages;
    for (int row = 0; row < m_languages->rowCount(); ++row) {
        LanguageRow language;
        language.id = leadingNumber(keyOf(row));
        language.isVisible = m_languages->item(row)->checkState() == Qt::Checked;
        languages.push_back(language);
    }
    saveVisibility(archive, languages);
}

void LanguageList::openStyles(Archive& archive, const Desktop& desktop, FrameServices& frame)
{
    const QStandardItem* language = m_languages->itemFromIndex(selectedRow());
    if (!language)
        return;
    frmOptionsLanguage styles(archive, desktop, frame, window());
    if (styles.Form_Load(selectedId(), language->text()))
        styles.exec();
}
