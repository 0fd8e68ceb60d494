// SPDX-License-Identifier: MIT
#include "tests/kit/sequence.h"

#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabWidget>

#include <utility>

namespace kit {

namespace {

/// What a widget shows, as far as it has it. The value of a spin box is also its text.
constexpr const char* properties[] = {"checked",      "minimum",     "maximum", "singleStep",
                                      "pageStep",     "orientation", "value",   "count",
                                      "tickInterval", "currentIndex"};

constexpr char pane[] = "logView";
/// Slower than any test.
constexpr std::chrono::hours noTick{1};

} // namespace

Sequence::Sequence(Operator& itsUser) : user(itsUser)
{
    for (QWidget* const widget : user.window().findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        // Names that begin with "qt_" belong to the toolkit's inner parts.
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_")) &&
            name != QLatin1String(pane)) {
            watched.append(widget);
            follow(*widget);
        }
    }
    if (user.monitoring()) {
        user.timer().setInterval(noTick);
    }
    before = look();
    filesBefore = readFiles();
    user.sdk.whenNoted([this](const recording::Entry& entry) { noteEntry(entry); });
    qApp->installEventFilter(this);
}

void Sequence::follow(QWidget& widget)
{
    const auto tells = [this, name = widget.objectName()](const char* property) {
        return [this, last = name + QLatin1Char(' ') + QLatin1String(property)] {
            noteWidgets(last);
        };
    };
    if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
        connect(button, &QAbstractButton::toggled, this, tells("checked"));
    } else if (auto* const slider = qobject_cast<QSlider*>(&widget)) {
        connect(slider, &QSlider::valueChanged, this, tells("value"));
    } else if (auto* const whole = qobject_cast<QSpinBox*>(&widget)) {
        connect(whole, qOverload<int>(&QSpinBox::valueChanged), this, tells("value"));
    } else if (auto* const decimal = qobject_cast<QDoubleSpinBox*>(&widget)) {
        connect(decimal, qOverload<double>(&QDoubleSpinBox::valueChanged), this, tells("value"));
    } else if (auto* const list = qobject_cast<QComboBox*>(&widget)) {
        connect(list, qOverload<int>(&QComboBox::currentIndexChanged), this, tells("currentIndex"));
    } else if (auto* const text = qobject_cast<QPlainTextEdit*>(&widget)) {
        connect(text, &QPlainTextEdit::textChanged, this, tells("text"));
    }
}

Sequence::~Sequence()
{
    qApp->removeEventFilter(this);
    user.sdk.whenNoted(nullptr);
}

Sequence::Picture Sequence::look() const
{
    Picture picture;
    const QTimer& timer = user.timer();
    // A start gives a timer a new number, even when it runs.
    picture.append(
        {QStringLiteral("timer"), timer.isActive() ? QString::number(timer.timerId()) : QString()});
    for (const QPointer<QWidget>& widget : watched) {
        const auto add = [&](const char* property, const QString& value) {
            picture.append(
                {widget->objectName() + QLatin1Char(' ') + QLatin1String(property), value});
        };
        // By itself, whatever the widgets around it are.
        add("enabled", QVariant(widget->isEnabledTo(widget->parentWidget())).toString());
        for (const char* const property : properties) {
            const QVariant value = widget->property(property);
            if (value.isValid() && qobject_cast<QTabWidget*>(widget) == nullptr) {
                add(property, value.toString());
            }
        }
        if (qobject_cast<QAbstractButton*>(widget) != nullptr ||
            qobject_cast<QLabel*>(widget) != nullptr) {
            add("text", widget->property("text").toString());
        } else if (const auto* const text = qobject_cast<QPlainTextEdit*>(widget)) {
            add("text", text->toPlainText());
        }
    }
    return picture;
}

void Sequence::noteWidgets(const QString& last)
{
    Picture now = look();
    QStringList told;
    for (int index = 0; index < now.size(); ++index) {
        const auto& [what, value] = now.at(index);
        if (value == before.at(index).second) {
            continue;
        }
        if (what != QLatin1String("timer")) {
            (what == last ? told : happenings).append((what + QLatin1Char(' ') + value).trimmed());
        } else if (value.isEmpty()) {
            happenings.append(QStringLiteral("timer stopped"));
        } else {
            happenings.append(QStringLiteral("timer started, %1 ms").arg(user.timer().interval()));
        }
    }
    happenings += told;
    before = std::move(now);
}

Sequence::Files Sequence::readFiles()
{
    Files files;
    for (const QString& folder : {QStringLiteral("bpr"), QStringLiteral("bprBackup")}) {
        for (const QString& name : QDir(folder).entryList(QDir::Files)) {
            const QString path = folder + QLatin1Char('/') + name;
            QFile file(path);
            files[path] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        }
    }
    return files;
}

void Sequence::noteFiles()
{
    Files now = readFiles();
    for (auto file = now.cbegin(); file != now.cend(); ++file) {
        if (!filesBefore.contains(file.key()) || filesBefore.value(file.key()) != file.value()) {
            happenings.append(file.key() + QStringLiteral(" written"));
        }
    }
    filesBefore = std::move(now);
}

void Sequence::note(const QString& happening)
{
    noteWidgets();
    noteFiles();
    happenings.append(QString(happening).replace(QLatin1Char('\n'), QLatin1String(" / ")));
}

void Sequence::noteEntry(const recording::Entry& entry)
{
    // How often the root is fetched does not matter.
    if (entry.operation == "OmbrixSdk.get_instance") {
        return;
    }
    QString text = QString::fromLocal8Bit(entry.text().c_str());
    if (entry.operation == "log" &&
        !user.find<QPlainTextEdit>(pane).toPlainText().endsWith(
            QString::fromStdString(entry.arguments) + QLatin1Char('\n'))) {
        text += QStringLiteral(" (not yet in the pane)");
    }
    note(text);
}

bool Sequence::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) {
        noteWidgets(object->objectName() + QStringLiteral(" enabled"));
    }
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        if (const auto* const box = qobject_cast<QMessageBox*>(object)) {
            note(event->type() == QEvent::Show
                     ? QStringLiteral("box \"%1\" / \"%2\"").arg(box->windowTitle(), box->text())
                     : QStringLiteral("box closed"));
        }
    }
    return QObject::eventFilter(object, event);
}

Lines Sequence::take()
{
    noteWidgets();
    noteFiles();
    return std::exchange(happenings, {});
}

} // namespace kit
