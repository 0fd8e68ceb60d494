// SPDX-License-Identifier: MIT
// The event log: the pane at the bottom of the window and the SDK's own log.
#include "tests/app/privatemember.h"
#include "tests/kit/operator.h"

#include <QtGui/QTextBlock>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

namespace kit {

struct AppendLog {
    using Pointer = void (MainWindow::*)(std::string);
    friend Pointer memberOf(AppendLog);
};
template struct PrivateMember<AppendLog, &MainWindow::appendLog>;

} // namespace kit

namespace {

void append(kit::Operator& user, const std::string& line)
{
    (user.window().*memberOf(kit::AppendLog()))(line);
}

} // namespace

class TestEventLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLineEndsWithALineFeedInThePaneOnly()
    {
        kit::Operator user;
        append(user, "Configure Zoom OK");
        QCOMPARE(user.text("logView"), QStringLiteral("Configure Zoom OK\n"));
        QCOMPARE(user.sdk.records().size(), std::size_t{1});
        QCOMPARE(user.sdk.records().front().text, std::string("Configure Zoom OK"));
    }

    void everyLineIsOneRecordOfSeverityTwoWrittenAsAString()
    {
        kit::Operator user;
        append(user, "one");
        append(user, "two");
        QCOMPARE(user.sdk.records().size(), std::size_t{2});
        for (const recording::LogRecord& record : user.sdk.records()) {
            QCOMPARE(record.severity, 2);
            QCOMPARE(record.pieces, std::vector<std::string>{"string: " + record.text});
        }
        QCOMPARE(user.sdk.records().front().text, std::string("one"));
        QCOMPARE(user.sdk.records().back().text, std::string("two"));
    }

    void aHandlersLineArrivesInBothPlaces()
    {
        kit::Operator user;
        user.connectCamera();
        user.click("TestPatternButton");
        QCOMPARE(user.newLog(), kit::lines({"Set TEST PATTERN value OK"}));
        QCOMPARE(user.sdk.records().size(), std::size_t{1});
        QCOMPARE(user.sdk.records().front().text, std::string("Set TEST PATTERN value OK"));
    }

    void theLineIsInThePaneWhenItsRecordIsEmitted()
    {
        kit::Operator user;
        QString paneInTheMiddle;
        user.sdk.whenLogged([&] { paneInTheMiddle = user.text("logView"); });
        append(user, "Set GAMMA value OK");
        QCOMPARE(paneInTheMiddle, QStringLiteral("Set GAMMA value OK\n"));
    }

    void anEmptyLineIsAnEmptyRowAndAnEmptyRecord()
    {
        kit::Operator user;
        append(user, "before");
        append(user, "");
        append(user, "after");
        QCOMPARE(user.text("logView"), QStringLiteral("before\n\nafter\n"));
        QCOMPARE(user.sdk.records().size(), std::size_t{3});
        QCOMPARE(user.sdk.records().at(1).text, std::string());
    }

    void aLineOfSeveralRowsIsOneRecord()
    {
        kit::Operator user;
        append(user, "first\nsecond");
        QCOMPARE(user.log(), kit::lines({"first", "second"}));
        QCOMPARE(user.sdk.records().size(), std::size_t{1});
        QCOMPARE(user.sdk.records().front().text, std::string("first\nsecond"));
    }

    void bytesAreReadAsUtf8AndReachTheRecordAsTheyAre_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("shown");
        QTest::newRow("two-byte letter") << QByteArray("Gr\xC3\xB6\xC3\x9F"
                                                       "e")
                                         << QString::fromUtf8("Größe");
        QTest::newRow("no UTF-8") << QByteArray("\xF6x") << QStringLiteral("\uFFFDx");
    }

    void bytesAreReadAsUtf8AndReachTheRecordAsTheyAre()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, shown);
        kit::Operator user;
        append(user, bytes.toStdString());
        QCOMPARE(user.log(), QStringList{shown});
        QCOMPARE(user.sdk.records().front().text, bytes.toStdString());
    }

    void markupIsShownAsText()
    {
        kit::Operator user;
        append(user, "<b>Start</b> &amp; end");
        QCOMPARE(user.log(), kit::lines({"<b>Start</b> &amp; end"}));
    }

    void aSelectionInThePaneDoesNotSplitOrLoseALine()
    {
        kit::Operator user;
        append(user, "first line");
        append(user, "second line");
        auto& pane = user.find<QPlainTextEdit>("logView");
        QTextCursor selection(pane.document());
        selection.setPosition(2);
        selection.setPosition(8, QTextCursor::KeepAnchor);
        pane.setTextCursor(selection);
        append(user, "third line");
        QCOMPARE(user.log(), kit::lines({"first line", "second line", "third line"}));
        QVERIFY(!pane.textCursor().hasSelection());
    }

    void aSelectionOfEverythingByTheOperatorIsKeptAsText()
    {
        kit::Operator user;
        append(user, "first line");
        user.press("logView", Qt::Key_A, Qt::ControlModifier);
        QVERIFY(user.find<QPlainTextEdit>("logView").textCursor().hasSelection());
        append(user, "second line");
        QCOMPARE(user.log(), kit::lines({"first line", "second line"}));
    }

    void whatTheOperatorTypesIntoThePaneStaysOut()
    {
        kit::Operator user;
        append(user, "first line");
        user.press("logView", Qt::Key_Home);
        user.press("logView", Qt::Key_X);
        append(user, "second line");
        QCOMPARE(user.log(), kit::lines({"first line", "second line"}));
    }

    void thePaneKeepsShowingTheNewestLine()
    {
        kit::Operator user;
        auto& pane = user.find<QPlainTextEdit>("logView");
        for (int line = 0; line < 200; ++line) {
            append(user, "line " + std::to_string(line));
        }
        const auto newestIsSeen = [&] {
            const QTextBlock newest = pane.document()->lastBlock().previous();
            return pane.viewport()->rect().contains(pane.cursorRect(QTextCursor(newest)));
        };
        QVERIFY(pane.verticalScrollBar()->maximum() > 0);
        QVERIFY(newestIsSeen());
        QVERIFY(pane.textCursor().atEnd());
        // Also when the operator has scrolled back to the top.
        pane.verticalScrollBar()->setValue(0);
        QVERIFY(!newestIsSeen());
        append(user, "newest");
        QVERIFY(newestIsSeen());
    }

    void anEntryOfManyRowsIsSeenToItsEnd()
    {
        kit::Operator user;
        auto& pane = user.find<QPlainTextEdit>("logView");
        std::string entry = "row";
        for (int row = 1; row < 60; ++row) {
            entry += "\nrow " + std::to_string(row);
        }
        append(user, entry);
        const QTextBlock last = pane.document()->lastBlock().previous();
        QCOMPARE(last.text(), QStringLiteral("row 59"));
        QVERIFY(pane.viewport()->rect().contains(pane.cursorRect(QTextCursor(last))));
    }

    void olderLinesAreNeverTrimmed()
    {
        kit::Operator user;
        constexpr int lineCount = 5000;
        for (int line = 0; line < lineCount; ++line) {
            append(user, std::to_string(line));
        }
        QCOMPARE(user.log().size(), lineCount);
        QCOMPARE(user.log().first(), QStringLiteral("0"));
    }

    void clearLogEmptiesThePaneAndTellsTheSdkNothing()
    {
        kit::Operator user;
        append(user, "Set GAMMA value OK");
        user.sdk.clearJournal();
        user.click("clearLogButton");
        QCOMPARE(user.text("logView"), QString());
        QVERIFY(user.sdk.entries().empty());
    }

    void theLogStartsAgainAtTheTopAfterClearing()
    {
        kit::Operator user;
        append(user, "old");
        user.click("clearLogButton");
        append(user, "new");
        QCOMPARE(user.text("logView"), QStringLiteral("new\n"));
    }

    void clearLogCanBeUsedWithoutACamera()
    {
        kit::Operator user;
        user.start();
        QVERIFY(user.enabled("clearLogButton"));
        user.click("clearLogButton");
        QCOMPARE(user.text("logView"), QString());
    }
};

TAVREL_TEST_MAIN(TestEventLog)
#include "tst_eventlog.moc"
