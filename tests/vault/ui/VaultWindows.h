// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"
#include "vault/VaultFixture.h"

#include "archive/Element.h"

class VaultFrame : public FakeFrame {
public:
    void checkCommand(const QString& name, bool checked) override { checkedCommands[name] = checked; }
    bool showView(const QString& name) override
    {
        views.append(name);
        return true;
    }
    QHash<QString, bool> checkedCommands;
    QStringList views;
};

// A file dialog that something happens behind.
class VaultFiles : public ScriptedFiles {
public:
    std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) override
    {
        behind();
        return ScriptedFiles::saveFile(title, filter, suffix);
    }
    std::function<void()> behind = [] {};
};

// An unlocked vault and what its windows need.
struct VaultWindows : VaultOn<UiFixture> {
    VaultFrame vaultFrame;
    VaultFiles vaultFiles;
    Desktop vaultDesktop{questions, vaultFiles, shell, clock, desktop.sound, desktop.printing, clipboard};
    cViewFilter filter;
};

template <typename Widget>
Widget& part(const QObject& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}
