#include "forms/FormTrackAnalyse.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace ortelix {

// The drawing surface; the form paints on it.
class ProfilCanvas : public QWidget {
public:
    ProfilCanvas(FormTrackAnalyse& form, QWidget* parent) : QWidget(parent), form_(form) {
        setObjectName("ProfilCanvas");
        setMinimumSize(240, 160);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        setAutoFillBackground(true);
        setBackgroundRole(QPalette::Base);
    }

protected:
    void paintEvent(QPaintEvent*) override { form_.paintProfil(*this); }

private:
    FormTrackAnalyse& form_;
};

namespace {

// The drawing's colours are 0x00BBGGRR.
QColor FromStored(int32_t c) { return QColor(c & 0xff, (c >> 8) & 0xff, (c >> 16) & 0xff); }

QString TotalsText(const TrackTotals& t) {
    QString html = "<table>";
    for (const auto& [caption, value] : TotalsLines(t))
        html += QString("<tr><td>%1</td><td align=right>&nbsp;&nbsp;%2</td></tr>")
                    .arg(QString::fromStdString(caption), QString::fromStdString(value).toHtmlEscaped());
    return html + "</table>";
}

}  // namespace

FormTrackAnalyse::FormTrackAnalyse(QWidget* owner) : QWidget(owner, Qt::Window) {
    setObjectName("FormTrackAnalyse");
    setWindowTitle("Trackanalyse");
    canvas_ = new ProfilCanvas(*this, this);
    totals_ = new QLabel(this);
    totals_->setObjectName("LabelTotals");
    totals_->setTextFormat(Qt::RichText);
    totals_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(canvas_, 1);
    layout->addWidget(totals_, 0);
    resize(900, 420);
}

void FormTrackAnalyse::display(ProfilDrawing drawing, const TrackTotals& totals, const QString& trackName) {
    drawing_ = std::move(drawing);
    setWindowTitle(trackName.isEmpty() ? QString("Trackanalyse") : QString::fromUtf8("Trackanalyse – ") + trackName);
    totals_->setText(TotalsText(totals));
    canvas_->update();
}

void FormTrackAnalyse::paintProfil(QWidget& on) {
    ++paints_;
    QPainter p(&on);
    p.fillRect(on.rect(), on.palette().color(QPalette::Base));
    if (drawing_.lines.empty()) {
        surface_ = {};
        return;
    }
    const QFontMetrics fm(on.font());
    // Room for the altitude labels at the left and the kilometres below.
    const int left = fm.horizontalAdvance("500 m") + 8;
    const int bottom = fm.height() + 6;
    const int top = fm.height() / 2 + 2, right = 12;
    surface_ = QRect(left, top, std::max(1, on.width() - left - right), std::max(1, on.height() - top - bottom));
    const double w = std::max(drawing_.width, 1);
    const double h = drawing_.height;
    const double sx = surface_.width() / w, sy = surface_.height() / h;
    auto at = [&](int x, int y) { return QPointF(surface_.left() + x * sx, surface_.top() + y * sy); };

    // The altitude axis beside the height marks, the kilometres under their marks.
    p.setPen(on.palette().color(QPalette::Text));
    for (int y = drawing_.height; y >= 0; y -= 100) {
        const QPointF pt = at(0, y);
        const QString label = QString("%1 m").arg(drawing_.height - y);
        p.drawText(QRectF(0, pt.y() - fm.height() / 2.0, left - 6, fm.height()), Qt::AlignRight | Qt::AlignVCenter,
                   label);
    }
    // Labels every 1, 2 or 5 times a power of ten kilometres, as close as
    // their width allows.
    const int labelWidth = fm.horizontalAdvance("0000 km") + 6;
    const double least = labelWidth / (10 * sx);
    int step = 1;
    for (int decade = 1; step < least && decade <= 100000; decade *= 10)
        for (int f : {1, 2, 5})
            if (step < least) step = f * decade;
    for (int km = 0; km * 10 <= drawing_.width; km += step) {
        const QPointF pt = at(km * 10, drawing_.height);
        p.drawText(QRectF(pt.x() - labelWidth / 2.0, surface_.bottom() + 3, labelWidth, fm.height()),
                   Qt::AlignHCenter | Qt::AlignTop, QString("%1 km").arg(km));
    }

    // The profile itself: the height range is fixed, so lines leave the
    // surface at the top and are cut there.
    p.setClipRect(surface_.adjusted(0, 0, 1, 1));
    p.setRenderHint(QPainter::Antialiasing, false);
    int32_t colour = -1;
    std::vector<QLineF> batch;
    auto flush = [&] {
        if (batch.empty()) return;
        p.setPen(QPen(FromStored(colour), 1));
        p.drawLines(batch.data(), static_cast<int>(batch.size()));
        batch.clear();
    };
    for (const ProfilLine& l : drawing_.lines) {
        if (l.colour != colour) {
            flush();
            colour = l.colour;
        }
        batch.emplace_back(at(l.x1, l.y1), at(l.x2, l.y2));
    }
    flush();
}

}  // namespace ortelix
