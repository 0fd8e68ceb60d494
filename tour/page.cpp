// SPDX-License-Identifier: MIT
#include "tour/page.h"

#include "tour/sight.h"

#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QTextStream>

#include <algorithm>

namespace tour {

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Failure(QStringLiteral("%1 cannot be read").arg(path));
    }
    return file.readAll();
}

QString resource(const char* name)
{
    return QString::fromUtf8(contentOf(QLatin1String(":/tour/") + QLatin1String(name)));
}

/// A line of the event log with what matters in it made visible.
QString markedUp(const QString& line)
{
    const auto marked = [](const char* kind, const QString& text) {
        return QStringLiteral("<span class=\"%1\">%2</span>").arg(QLatin1String(kind), text);
    };
    QString escaped = line.toHtmlEscaped();
    if (line.endsWith(QLatin1String(" OK"))) {
        return escaped.chopped(2) + marked("ok", QStringLiteral("OK"));
    }
    if (line.endsWith(QLatin1String(" KO"))) {
        return escaped.chopped(2) + marked("ko", QStringLiteral("KO"));
    }
    if (line.startsWith(QLatin1String("Start ")) || line.startsWith(QLatin1String("End "))) {
        return marked("frame", escaped);
    }
    const QString equals = QStringLiteral(" = ");
    if (const auto at = escaped.indexOf(equals); at >= 0) {
        const auto value = at + equals.size();
        return escaped.left(value) + marked("value", escaped.mid(value));
    }
    return escaped;
}

QString percent(int part, int whole)
{
    return QString::number(100.0 * part / whole, 'f', 2) + QLatin1Char('%');
}

/// What a picture shows, for those who cannot see it.
QString description(const Step& step, const Picture& picture)
{
    const QString what =
        picture.caption.isEmpty() ? QStringLiteral("The window afterwards") : picture.caption;
    QString text = QStringLiteral("%1: %2. %3.").arg(step.chapter, step.title, what);
    if (!picture.actions.isEmpty()) {
        text +=
            QStringLiteral(" The operator: %1.").arg(picture.actions.join(QStringLiteral("; ")));
    }
    return text;
}

class Page {
public:
    explicit Page(const Report& itsReport) : report(itsReport) {}

    QString written()
    {
        out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
            << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            << "<title>Tavrel KV: an operator's tour</title>\n<style>\n"
            << resource("page.css") << "</style>\n</head>\n<body>\n";
        writeHeader();
        writeContents();
        out << "<main>\n";
        forEveryStep([this](std::size_t number, const Step& step) { writeStep(number, step); });
        out << "</main>\n<script>\n" << resource("page.js") << "</script>\n</body>\n</html>\n";
        out.flush();
        return text;
    }

private:
    /// Calls write(number, step), each chapter below its heading.
    template<typename Write> void forEveryStep(const Write& write)
    {
        QString chapter;
        std::size_t number = 0;
        for (const Step& step : report.allSteps()) {
            if (chapter != step.chapter) {
                chapter = step.chapter;
                out << "<h2>" << chapter.toHtmlEscaped() << "</h2>\n";
            }
            write(++number, step);
        }
    }

    void writeContents()
    {
        out << "<nav>\n<details open>\n<summary>All steps</summary>\n";
        forEveryStep([this](std::size_t number, const Step& step) {
            out << "<a href=\"#step-" << number << '"'
                << (step.failure.isEmpty() ? "" : " class=\"failed\"") << "><span>" << number
                << "</span>" << step.title.toHtmlEscaped() << "</a>\n";
        });
        out << "</details>\n</nav>\n";
    }

    void writeHeader()
    {
        const auto& steps = report.allSteps();
        const int failures = report.failures();
        out << "<header>\n<h1>Tavrel KV: an operator's tour</h1>\n<p class=\"verdict"
            << (failures == 0 ? "" : " failed") << "\">";
        if (failures == 0) {
            out << "All " << steps.size() << " steps had their expected effect";
        } else {
            out << failures << " of " << steps.size() << " steps failed";
        }
        out << "</p>\n<p>The program as it was built, worked by real mouse and keyboard events, "
               "with "
               "a simulated camera on a simulated serial port. Each step shows the screen beside "
               "the "
               "lines that the step added to the event log. The numbered rings are the operator's "
               "clicks and fade under the pointer; a click on a picture shows it in full size. The "
               "keys &rarr; and &larr; go to the next and to the previous step. Taken on "
            << QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd, hh:mm"))
            << ".</p>\n</header>\n";
    }

    void writeStep(std::size_t number, const Step& step)
    {
        out << "<section id=\"step-" << number << '"'
            << (step.failure.isEmpty() ? "" : " class=\"failed\"") << ">\n<h3><span>" << number
            << "</span>" << step.title.toHtmlEscaped() << "</h3>\n<div class=\"sides\">\n<div>\n";
        for (const Picture& picture : step.pictures) {
            writePicture(step, picture);
        }
        out << "</div>\n<div>\n";
        if (!step.failure.isEmpty()) {
            out << "<p class=\"failure\">" << step.failure.toHtmlEscaped() << "</p>\n";
        }
        if (!step.actions.isEmpty()) {
            out << "<h4>The operator</h4>\n<ol>\n";
            for (const QString& action : step.actions) {
                out << "<li>" << action.toHtmlEscaped() << "</li>\n";
            }
            out << "</ol>\n";
        }
        out << "<h4>Event log</h4>\n";
        if (step.log.isEmpty()) {
            out << "<p class=\"none\">No new line.</p>\n";
        } else {
            out << "<pre>";
            for (const QString& line : step.log) {
                out << markedUp(line) << '\n';
            }
            out << "</pre>\n";
        }
        if (!step.calls.isEmpty()) {
            out << "<details>\n<summary>" << step.calls.size()
                << " calls to the camera SDK</summary>\n<pre>"
                << step.calls.join(QLatin1Char('\n')).toHtmlEscaped() << "</pre>\n</details>\n";
        }
        out << "</div>\n</div>\n</section>\n";
    }

    void writePicture(const Step& step, const Picture& picture)
    {
        const QByteArray content = contentOf(report.path(picture.file)).toBase64();
        out << "<figure>\n<div class=\"frame\"><div class=\"picture\"><img alt=\""
            << description(step, picture).toHtmlEscaped() << "\" width=\"" << picture.size.width()
            << "\" height=\"" << picture.size.height() << "\" src=\"data:image/png;base64,"
            << content << "\">";
        for (const Click& click : picture.clicks) {
            out << "<i data-number=\"" << click.action
                << "\" style=\"left:" << percent(click.place.x(), picture.size.width())
                << ";top:" << percent(click.place.y(), picture.size.height()) << "\"></i>";
        }
        out << "</div></div>\n";
        if (!picture.caption.isEmpty()) {
            out << "<figcaption>" << picture.caption.toHtmlEscaped() << "</figcaption>\n";
        }
        out << "</figure>\n";
    }

    const Report& report;
    QString text;
    QTextStream out{&text};
};

} // namespace

void writePage(const Report& report)
{
    const QString path = report.path(QStringLiteral("index.html"));
    QFile file(path);
    const QByteArray page = Page(report).written().toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(page) != page.size()) {
        throw Failure(QStringLiteral("%1 cannot be written").arg(path));
    }
}

} // namespace tour
