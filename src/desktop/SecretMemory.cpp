// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/SecretMemory.h"

#include <cstring>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace {

// The whole buffer, also what lies behind the end or before the beginning of a text that was cut.
template <typename Text>
void wipeText(Text& text)
{
    if (text.isDetached()) {
        auto& buffer = text.data_ptr();
        const qsizetype before = buffer.freeSpaceAtBegin();
        ::explicit_bzero(buffer.data() - before, size_t(buffer.constAllocatedCapacity()) * sizeof(*buffer.data()));
    }
    text = Text();
}

struct DumpState {
    int users = 0;
    int dumpable = 1;
    rlimit size{};
    bool hasSize = false;
};

DumpState& dumpState()
{
    static DumpState state;
    return state;
}

} // namespace

QString secretCopy(const QString& text)
{
    return QString(text.constData(), text.size());
}

void wipe(QString& text)
{
    wipeText(text);
}

void wipe(QByteArray& bytes)
{
    wipeText(bytes);
}

// Both switches: a dump that is piped to a collector ignores the limit, and one system or another ignores the flag.
NoCoreDumps::NoCoreDumps()
{
    DumpState& state = dumpState();
    if (++state.users > 1)
        return;
    state.dumpable = ::prctl(PR_GET_DUMPABLE, 0, 0, 0, 0);
    ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
    state.hasSize = ::getrlimit(RLIMIT_CORE, &state.size) == 0;
    const rlimit none{0, state.size.rlim_max}; // the hard limit stays: it could never be raised again
    if (state.hasSize)
        ::setrlimit(RLIMIT_CORE, &none);
}

NoCoreDumps::~NoCoreDumps()
{
    DumpState& state = dumpState();
    if (--state.users > 0)
        return;
    if (state.dumpable == 1) // the only other state that a process may choose
        ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0);
    if (state.hasSize)
        ::setrlimit(RLIMIT_CORE, &state.size);
}
