// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <string>

// The test classes of one program, by name.
using TestRegistry = std::map<std::string, std::function<std::unique_ptr<QObject>()>>;
inline TestRegistry& testRegistry()
{
    static TestRegistry registry;
    return registry;
}

// Makes a class one of its program's: the program runs those named by its first argument, or all.
#define SNIPVALE_TEST(Class)                                                                                           \
    [[maybe_unused]] static const bool registered##Class =                                                             \
        testRegistry().emplace(#Class, [] { return std::make_unique<Class>(); }).second;
