// SPDX-License-Identifier: MIT
#include "ui/largefonts.h"

#include "ui_mainwindow.h"

#include <algorithm>

namespace tavrel {

void makeRoomForFonts(const Ui_MainWindow& ui)
{
    // The dots per inch for which the form was drawn.
    constexpr int drawnFor = 96;
    if (ui.label_6->logicalDpiX() <= drawnFor) {
        return;
    }
    const auto isCut = [](const QLabel* caption) {
        return caption->sizeHint().width() > caption->minimumWidth();
    };
    // The narrowest field limits the whole column; what is centred in it no longer does.
    const bool centred = isCut(ui.label_6) || isCut(ui.label_12);
    QVBoxLayout& column = *ui.SystemInfos;
    for (int index = 0; index < column.count(); ++index) {
        if (QWidget* const widget = column.itemAt(index)->widget()) {
            column.setAlignment(widget, centred ? Qt::AlignHCenter : Qt::Alignment());
        }
    }

    for (QPlainTextEdit* const field :
         {ui.BitTextEdit, ui.FpgaTempTextEdit, ui.SensorTempTextEdit}) {
        static const double usual = QTextDocument().documentMargin();
        const int room =
            field->maximumHeight() - 2 * field->frameWidth() - field->fontMetrics().height();
        field->document()->setDocumentMargin(std::clamp(room / 2.0, 0.0, usual));
    }
}

} // namespace tavrel
