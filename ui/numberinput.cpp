// SPDX-License-Identifier: MIT
#include "ui/numberinput.h"

#include <QtCore/QVariant>
#include <QtGui/QKeyEvent>
#include <QtGui/QValidator>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLineEdit>

#include <algorithm>

namespace tavrel {

namespace {

/// Stands between the keyboard (or a paste) and one field. The toolkit alone would take dot or
/// comma for a sign that groups digits, or leave it out, and go on with what follows: 1.5
/// became 15.
class NumberInput final : public QValidator {
public:
    NumberInput(QAbstractSpinBox& ofSpinBox, QLineEdit& ofEdit)
        : QValidator(&ofEdit), spinBox(ofSpinBox), edit(ofEdit)
    {
        start();
        edit.setValidator(this);
        connect(&edit, &QLineEdit::textEdited, this, [this](const QString& text) { typed = text; });
        spinBox.installEventFilter(this);
    }

    State validate(QString& text, int& position) const override
    {
        const QString sign = decimalSign();
        const QLatin1Char comma(',');
        // Where a comma does not begin decimals it may as well group thousands: 1,024.
        ambiguous |= text.contains(comma) && sign != comma &&
                     spinBox.property("maximum").toDouble() >= thousand;
        text.replace(QLatin1Char('.'), sign).replace(comma, sign);
        ambiguous &= text.contains(sign);
        const State state = spinBox.validate(text, position);
        return state == Invalid && isKept(text, sign) ? Intermediate : state;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            start();
        } else if (event->type() == QEvent::FocusOut || isEnter(*event)) {
            finish();
        }
        return QValidator::eventFilter(watched, event);
    }

private:
    static constexpr double thousand = 1000.0;

    static bool isEnter(const QEvent& event)
    {
        if (event.type() != QEvent::KeyPress) {
            return false;
        }
        const int key = static_cast<const QKeyEvent&>(event).key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    }

    [[nodiscard]] QString decimalSign() const { return QString(spinBox.locale().decimalPoint()); }

    /// A decimal too many is refused as a key. Where a sign has no place it is kept, because
    /// without it the text would be another number.
    [[nodiscard]] bool isKept(const QString& text, const QString& sign) const
    {
        const int places = spinBox.property("decimals").toInt() > 0 ? 1 : 0;
        return text.count(sign) > places &&
               std::all_of(text.begin(), text.end(), [&](QChar character) {
                   return character.isDigit() || sign == character;
               });
    }

    void start()
    {
        before = spinBox.property("value");
        ambiguous = false;
    }

    void finish()
    {
        QString text = edit.text();
        int position = 0;
        const bool isNumber = spinBox.validate(text, position) == Acceptable;
        // A step or the slider may have set another value: what was typed counts no more.
        if ((ambiguous && edit.text() == typed) ||
            (!isNumber && text.contains(decimalSign()) && !hasOnlySpareDecimals(text))) {
            spinBox.setProperty("value", before);
        }
        start();
    }

    /// Decimals that a field has no room for are left out. Three of them look like thousands.
    [[nodiscard]] bool hasOnlySpareDecimals(const QString& text) const
    {
        constexpr int groupSize = 3;
        const QString sign = decimalSign();
        return qobject_cast<const QDoubleSpinBox*>(&spinBox) != nullptr && text.count(sign) == 1 &&
               text.size() - text.indexOf(sign) - sign.size() != groupSize;
    }

    QAbstractSpinBox& spinBox;
    QLineEdit& edit;
    QVariant before; ///< the value at the beginning of the edit
    QString typed;   ///< what the last key or paste left
    mutable bool ambiguous = false;
};

} // namespace

void takeDotAsDecimalSign(QWidget& window)
{
    const QList<QAbstractSpinBox*> spinBoxes = window.findChildren<QAbstractSpinBox*>();
    for (QAbstractSpinBox* spinBox : spinBoxes) {
        // The field owns it.
        new NumberInput(*spinBox, *spinBox->findChild<QLineEdit*>());
    }
}

} // namespace tavrel
