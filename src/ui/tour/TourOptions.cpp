// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The tour's options, language styles, print preview, help and about box.
#include "ui/tour/TourWalk.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeView>

using namespace Qt::StringLiterals;

void Tour::options()
{
    step("miToolsOptions", [this](QWidget& window) {
        picture(window, u"options"_s);
        find<QTabWidget>(window, "TabStrip1").setCurrentIndex(1);
        auto& list = find<QTreeView>(window, "lvwLanguage");
        const QModelIndexList found = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, u"C / C++"_s);
        require(!found.isEmpty(), "C / C++ is not in the options");
        list.setCurrentIndex(found.first());
        picture(window, u"options-languages"_s);
        inner([&] { find<QPushButton>(window, "cmdLanguage").click(); },
              [this](QWidget& styles) { languageStyles(styles); });
        find<QTabWidget>(window, "TabStrip1").setCurrentIndex(0);
        find<QRadioButton>(window, "optStileNormale").setChecked(true);
        find<QPushButton>(window, "cmdOK").click();
    });
    picture(*m_frame, u"other-look"_s);
}

void Tour::languageStyles(QWidget& window)
{
    auto& list = find<QTreeView>(window, "lvwLanguage");
    require(list.model()->rowCount() > 5, "the language has no styles");
    list.setCurrentIndex(list.model()->index(5, 0));
    picture(window, u"language-styles"_s);
    inner([&] { m_frame->runCommand(u"miOptionsLanguageDetailsOpen"_s); },
          [this](QWidget& details) {
              find<QCheckBox>(details, "chkItalic").click();
              picture(details, u"style-details"_s);
              find<QPushButton>(details, "cmdOK").click();
          });
    find<QPushButton>(window, "cmdOK").click();
}

void Tour::printPreview()
{
    selectCategory(u"Code"_s);
    auto& list = find<QTreeView>(*m_frame, "lvwMemo");
    list.setCurrentIndex(list.model()->index(0, 0));
    step("miMemoPrintPreview", [this](QWidget& window) {
        picture(window, u"print-preview"_s);
        window.close();
    });
}

void Tour::help()
{
    step("miHelpAbout", [this](QWidget& window) {
        picture(window, u"about"_s);
        window.close();
    });
    m_frame->runCommand(u"miHelpManual"_s);
    settle();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto manual = std::find_if(windows.begin(), windows.end(),
                                     [](const QWidget* window) { return window->objectName() == "frmHelp"_L1; });
    require(manual != windows.end() && (*manual)->isVisible(), "the manual did not open");
    picture(**manual, u"help"_s);
    (*manual)->close();
}
