// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The program around the test classes of a folder: `test_jet [class [options of Qt Test]]`. Built once without windows
// and once with them.
#include "support/Registry.h"

#include <QtTest>
#ifdef WITH_WINDOWS
#include <QApplication>
#endif
#include <cstdio>

int main(int argc, char** argv)
{
#ifdef WITH_WINDOWS
    const QApplication application(argc, argv);
#else
    const QCoreApplication application(argc, argv);
#endif
    QStringList arguments = QCoreApplication::arguments();
    std::string wanted;
    if (arguments.size() > 1 && !arguments[1].startsWith(u'-'))
        wanted = arguments.takeAt(1).toStdString();
    int ran = 0;
    int failed = 0;
    for (const auto& [name, make] : testRegistry()) {
        if (!wanted.empty() && wanted != name)
            continue;
        ++ran;
        failed += QTest::qExec(make().get(), arguments) != 0;
    }
    if (ran == 0)
        std::fprintf(stderr, "there is no test class %s\n", wanted.c_str());
    return ran == 0 || failed > 0;
}
