// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Renders the program's icons from the installed theme: makeicons LIST OUTPUT_FOLDER. Reading an icon theme and
// drawing vector files would be a quarter of the program's start. Leaves icons.qrc and the pictures in the folder.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int sizes[] = {16, 22, 32, 44, 48, 64, 96}; // pixels: 16 to 48 at one and two times

QStringList readList(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + name.toStdString());
    QStringList names;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (!line.trimmed().isEmpty() && !line.startsWith('#'))
            names.append(QString::fromUtf8(line.trimmed()));
    return names;
}

void render(const QString& theme, const QString& name, const QDir& folder, QString& files)
{
    QIcon::setThemeName(theme);
    const QIcon icon = QIcon::fromTheme(name);
    for (const int size : sizes) {
        const QString file = u"%1/%2/%3.png"_s.arg(theme).arg(size).arg(name);
        folder.mkpath(u"%1/%2"_s.arg(theme).arg(size));
        const QPixmap picture = icon.pixmap(QSize(size, size), 1.0);
        if (picture.isNull())
            throw std::runtime_error("the theme " + theme.toStdString() + " has no icon " + name.toStdString());
        if (!picture.save(folder.filePath(file)))
            throw std::runtime_error("cannot write " + file.toStdString());
        files += u"<file>"_s + file + u"</file>\n"_s;
    }
}

void makeIcons(const QString& list, const QString& output)
{
    const QDir folder(output);
    if (!folder.mkpath(u"."_s))
        throw std::runtime_error("cannot make " + output.toStdString());
    QIcon::setThemeSearchPaths({u"/usr/share/icons"_s});
    QString files;
    for (const QString& name : readList(list))
        for (const QString& theme : {u"breeze"_s, u"breeze-dark"_s})
            render(theme, name, folder, files);
    QFile index(folder.filePath(u"icons.qrc"_s));
    if (!index.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write icons.qrc");
    index.write((u"<RCC><qresource prefix=\"/icons\">\n"_s + files + u"</qresource></RCC>\n"_s).toUtf8());
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "makeicons LIST OUTPUT_FOLDER\n");
        return 1;
    }
    try {
        makeIcons(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "makeicons: %s\n", error.what());
        return 1;
    }
}
