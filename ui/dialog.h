// SPDX-License-Identifier: MIT
// The About dialog.
#pragma once

#include <QDialog>

#include <memory>

class Ui_Dialog;

/// Shows the product's name, its version and the vendor's credit line. The caller decides whether
/// it is modal; its result means nothing.
class Dialog : public QDialog {
    Q_OBJECT

public:
    /// Builds the form and fills in name and version. Without a parent the window system chooses
    /// the dialog's place.
    explicit Dialog(QWidget* parent = nullptr);

    /// Deletes the form before the QDialog deletes the widgets that it points to.
    ~Dialog() override;

private:
    std::unique_ptr<Ui_Dialog> ui;
};
