// SPDX-License-Identifier: MIT
// Everything that happens at the window, in one order: what the widgets show, boxes that open and
// close, the monitoring timer, map files, calls of the SDK and log records. So a test holds what
// comes before what: whether a caption turns before or after its log line, for example.
//
// clang-format off
//     kit::Sequence sequence(user);
//     user.click("TestPatternButton");
//     QCOMPARE(sequence.take(), kit::block(R"(
//         TestPatternButton checked true
//         camera.setTestPattern(true)
//         TestPatternButton text Test Pattern: Activated
//         log 2: Set TEST PATTERN value OK
//     )"));
// clang-format on
//
// The widgets are looked at whenever one of them tells of a change, and before anything else is
// noted. What they do not tell (captions, ranges) stands in the order of the form there.
#pragma once

#include "tests/kit/operator.h"

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QPair>
#include <QtCore/QPointer>

namespace kit {

class Sequence : public QObject {
public:
    /// Begins now. The window must be there; the timer ticks no more, unless it is started again.
    explicit Sequence(Operator& user);
    ~Sequence() override;

    /// What happened since the last time, or since the beginning.
    Lines take();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What the widgets show: name and property, value.
    using Picture = QVector<QPair<QString, QString>>;
    /// The map files: path, content.
    using Files = QMap<QString, QByteArray>;

    [[nodiscard]] Picture look() const;
    static Files readFiles();
    void noteFiles();
    void follow(QWidget& widget);
    void note(const QString& happening);
    /// last: the change that is being told of just now, name and property.
    void noteWidgets(const QString& last = QString());
    void noteEntry(const recording::Entry& entry);

    Operator& user;
    QList<QPointer<QWidget>> watched;
    Picture before;
    Files filesBefore;
    QStringList happenings;
};

} // namespace kit
