// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "ui_mainwindow.h"

void MainWindow::appendLog(std::string line)
{
    // The operator may have put the cursor anywhere; a line goes to the end and stays in sight.
    ui->logView->moveCursor(QTextCursor::End);
    line.push_back('\n');
    ui->logView->insertPlainText(QString::fromStdString(line));
    line.pop_back();
    ui->logView->moveCursor(QTextCursor::End);

    ombrix_sdk::SDKLogger record(ombrix_sdk::event_severity);
    record.GetILogger() << line;
}

void MainWindow::reportResult(ombrix_sdk::Flag result, const std::string& ok, const std::string& ko)
{
    lastResult = result;
    appendLog(result != 0 ? ok : ko);
}

void MainWindow::reportResult(ombrix_sdk::Flag result, const std::string& command)
{
    reportResult(result, command + " OK", command + " KO");
}
