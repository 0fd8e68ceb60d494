#include "simulator/sdkroot.h"

#include "simulator/simulator.h"

#include <algorithm>

namespace simulator {

void SdkRoot::initialize()
{
    Simulator::instance().start();
}

ombrix_sdk::ISdkConfiguration* SdkRoot::getConfiguration()
{
    return &Simulator::instance().configuration();
}

void SdkRoot::saveConfiguration() {}

ombrix_sdk::ISerialLink* SdkRoot::createSerialLink()
{
    links.push_back(
        std::make_unique<SerialLink>(Simulator::instance().configuration().linkBaudRate()));
    return links.back().get();
}

void SdkRoot::releaseSerialLink(ombrix_sdk::ISerialLink** link)
{
    if (link == nullptr) {
        Simulator::instance().log().misuse(QStringLiteral("releaseSerialLink with a null pointer"));
        return;
    }
    // Compared by address only: a pointer that is not ours must not be followed.
    const auto found = std::find_if(links.begin(), links.end(),
                                    [link](const auto& known) { return known.get() == *link; });
    if (found == links.end() || (*found)->isReleased()) {
        Simulator::instance().log().misuse(
            QStringLiteral("releaseSerialLink of a link that is not open"));
        return;
    }
    (*found)->release();
    *link = nullptr;
}

} // namespace simulator
