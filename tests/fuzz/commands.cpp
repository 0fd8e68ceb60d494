// SPDX-License-Identifier: MIT
// Feeds arbitrary commands, separated by zero bytes, to a running simulator and checks what must
// hold after every one of them. The camera is called between them, as a program would.
#include "simulator/commands.h"
#include "sdk/ombrix_sdk.h"
#include "simulator/control.h"
#include "tests/fuzz/require.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

ombrix_sdk::ICamera* camera = nullptr;
std::string builtIn; ///< values of the camera
constexpr int mostCommands = 20;

/// Values, faults and cables.
QByteArray state()
{
    const simulator::Reply list = simulator::carryOut("list\n");
    require(list.status == simulator::Status::Done, "the state is told");
    return list.text.left(list.text.lastIndexOf("clock ")) +
           QByteArray::fromStdString(ombrix_simulator::get("camera").text);
}

void callTheCamera()
{
    // No delay of a fault takes real time.
    require(ombrix_simulator::setClockSpeed(0).done, "the clock stands still");
    std::array<char, 8192> table{};
    ombrix_sdk::Temperatures temperatures{};
    ombrix_sdk::Zoom zoom{};
    ombrix_sdk::EdgeCorrection edge{};
    std::uint32_t versions = 0;
    camera->getVersions(&versions);
    camera->getGamma();
    camera->setFrameRate(30);
    camera->getTemperatures(&temperatures);
    camera->getZoom(&zoom);
    camera->getEdgeCorrection(&edge);
    camera->getRoiX1(2);
    camera->requestNuc(1);
    camera->readTableData(4096, 8192, 9, table.data());
}

/// before: the state before the command, and after it.
void tell(const QByteArray& command, QByteArray& before)
{
    const simulator::Reply reply = simulator::carryOut(command);
    require(!QString::fromUtf8(reply.text).contains(QChar::ReplacementCharacter),
            "an answer is text");
    if (reply.status != simulator::Status::Done) {
        require(!reply.text.isEmpty(), "a refusal says why");
        require(state() == before, "a refusal changes nothing");
    } else {
        callTheCamera();
        before = state();
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    setenv("TAVREL_SIMULATOR_LOG", "/dev/null", 1);
    camera = ombrix_sdk::OmbrixSdk::get_instance()->createSerialLink()->openCamera("ttyUSB0");
    require(camera != nullptr, "there is a camera");
    builtIn = ombrix_simulator::get("camera").text;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QByteArray atFirst = state();
    QByteArray now = atFirst;
    for (const QByteArray& command : content.split('\0').mid(0, mostCommands)) {
        tell(command, now);
    }
    if (now == atFirst) {
        return 0;
    }
    ombrix_simulator::plug("camera");
    require(ombrix_simulator::liftFault().done, "all faults are lifted");
    require(ombrix_simulator::set("camera", builtIn).done, "the camera is as it was");
    require(camera->getGamma() == 65536, "the camera answers");
    return 0;
}
