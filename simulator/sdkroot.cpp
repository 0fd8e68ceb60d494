// SPDX-License-Identifier: MIT
#include "simulator/sdkroot.h"

#include "simulator/simulator.h"

#include <algorithm>
#include <mutex>

namespace simulator {
namespace {

void journalCall(const QString& operation)
{
    Simulator::instance().journal().write(
        {.subject = QStringLiteral("sdk"), .operation = operation});
}

} // namespace

void SdkRoot::initialize()
{
    const std::lock_guard entry(Simulator::instance().gate());
    Simulator::instance().introduce();
    journalCall(QStringLiteral("initialize"));
}

ombrix_sdk::ISdkConfiguration* SdkRoot::getConfiguration()
{
    return &Simulator::instance().configuration();
}

void SdkRoot::saveConfiguration()
{
    const std::lock_guard entry(Simulator::instance().gate());
    if (Simulator::instance().decide({Operation::saveConfiguration}).carryOut) {
        Simulator::instance().saveConfiguration();
    }
    journalCall(nameOf(Operation::saveConfiguration));
}

ombrix_sdk::ISerialLink* SdkRoot::createSerialLink()
{
    const std::lock_guard entry(Simulator::instance().gate());
    links.push_back(
        std::make_unique<SerialLink>(Simulator::instance().configuration().linkBaudRate()));
    journalCall(QStringLiteral("createSerialLink"));
    return links.back().get();
}

void SdkRoot::releaseSerialLink(ombrix_sdk::ISerialLink** link)
{
    const std::lock_guard entry(Simulator::instance().gate());
    Log& log = Simulator::instance().log();
    if (link == nullptr) {
        log.misuse(QStringLiteral("releaseSerialLink with a null pointer"));
        return;
    }
    // Compared by address only: a pointer that is not ours must not be followed.
    const auto found = std::find_if(links.begin(), links.end(),
                                    [link](const auto& known) { return known.get() == *link; });
    if (found == links.end() || (*found)->isReleased()) {
        log.misuse(QStringLiteral("releaseSerialLink of a link that is not open"));
        return;
    }
    (*found)->release();
    *link = nullptr;
    journalCall(QStringLiteral("releaseSerialLink"));
}

void SdkRoot::releaseAll()
{
    for (const auto& link : links) {
        link->release();
    }
}

} // namespace simulator
