// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tour/TourWalk.h"

#include "app/Home.h"
#include "app/ui/Startup.h"

#include <QTreeView>

using namespace Qt::StringLiterals;

void require(bool holds, const char* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

Tour::Tour(const QString& folder, const QString& shipped) : m_folder(folder), m_shipped(shipped)
{
    require(QDir().mkpath(folder), "the folder for the pictures cannot be made");
    m_questions.onShown = [this](QWidget& box) { picture(box, u"message"_s); };
}

void Tour::picture(QWidget& window, const QString& name)
{
    settle();
    const QString file = u"%1-%2.png"_s.arg(++m_number, 2, 10, QChar(u'0')).arg(name);
    require(window.grab().save(m_folder.filePath(file)), "a picture cannot be written");
}

void Tour::start()
{
    const HomeFolders folders{m_scratch.filePath(u"home"_s), m_shipped};
    prepareHome(folders);
    m_program = std::make_unique<modSnipVale>(m_questions, m_clock, m_shell);
    m_program->AppPath = folders.home;
    m_program->ShippedPath = folders.shipped;
    m_frame = Main(*m_program, m_desktop, m_previous);
    require(m_frame != nullptr, "the program did not start");
    settle();
}

void Tour::inner(const std::function<void()>& open, std::function<void(QWidget& window)> inWindow)
{
    whenModalShows([this, inWindow = std::move(inWindow)](QWidget& window) {
        try {
            inWindow(window);
        } catch (const std::exception& error) {
            m_failure = error.what();
            window.close();
        }
    });
    open();
}

void Tour::step(const char* command, std::function<void(QWidget& window)> inWindow)
{
    inner([&] { m_frame->runCommand(QString::fromLatin1(command)); }, std::move(inWindow));
    settle();
    if (!m_failure.empty())
        throw std::runtime_error(m_failure);
}

QModelIndex Tour::category(const QString& name)
{
    const QAbstractItemModel& model = *find<QTreeView>(*m_frame, "tvTreeView").model();
    const QModelIndexList found =
        model.match(model.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
    require(!found.isEmpty(), "a category is missing in the tree");
    return found.first();
}

void Tour::selectCategory(const QString& name)
{
    find<QTreeView>(*m_frame, "tvTreeView").setCurrentIndex(category(name));
    settle();
}
