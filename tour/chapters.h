// SPDX-License-Identifier: MIT
// The tour's steps, chapter by chapter, in the order in which they are taken.
#pragma once

#include "tour/operator.h"

namespace tour {

void connectCamera(Operator& user);
void lookAtTabs(Operator& user);
void changeImageProcessing(Operator& user);
void changeLut(Operator& user);
void changeZoomAndEdge(Operator& user);
void changeExpertValues(Operator& user);
void changeBadPixels(Operator& user);
void moveBaudRate(Operator& user);
void meetRefusals(Operator& user);
void readAndReset(Operator& user);
void unplugAndEnd(Operator& user);

/// A switch is clicked, the camera takes it, and check state and caption follow.
void clickSwitch(Operator& user, const char* button, bool on, const char* caption,
                 const char* logLine);

} // namespace tour
