// SPDX-License-Identifier: MIT
#include "ui/dialog.h"

#include "ui/version.h"
#include "ui_dialog.h"

Dialog::Dialog(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui_Dialog>())
{
    ui->setupUi(this);

    // A name and a number: the same in every language.
    ui->NomProduit->setText(QLatin1String(tavrel::productName));
    ui->VersionProduit->setText(QLatin1String(tavrel::productVersion));
}

Dialog::~Dialog() = default;
