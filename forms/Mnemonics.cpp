#include "forms/Mnemonics.h"

#include <QHash>
#include <QSet>
#include <functional>
#include <vector>

namespace ortelix {

namespace {
bool WordStart(const QString& s, qsizetype i) { return i == 0 || !s[i - 1].isLetterOrNumber(); }

// The letters a caption may take, lower case, each once: the first letters of
// its words, then the others in order.
QList<QChar> Candidates(const QString& caption) {
    QList<QChar> out;
    for (int pass = 0; pass < 2; ++pass)
        for (qsizetype i = 0; i < caption.size(); ++i) {
            const QChar c = caption[i].toLower();
            if (caption[i].isLetterOrNumber() && (pass == 1 || WordStart(caption, i)) && !out.contains(c)) out << c;
        }
    return out;
}

// Where the mark goes for a chosen letter: a word's first letter if it is one.
qsizetype MarkPosition(const QString& caption, QChar letter) {
    qsizetype first = -1;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i].toLower() != letter) continue;
        if (WordStart(caption, i)) return i;
        if (first < 0) first = i;
    }
    return first;
}
}  // namespace

QStringList WithMnemonics(const QStringList& captions) {
    const qsizetype n = captions.size();
    std::vector<QList<QChar>> candidates;
    candidates.reserve(static_cast<size_t>(n));
    for (const QString& c : captions) candidates.push_back(Candidates(c));
    std::vector<QChar> chosen(static_cast<size_t>(n));
    QHash<QChar, qsizetype> owner;

    // In menu order, each takes its first free letter: "Eingang" before "Ende".
    for (qsizetype i = 0; i < n; ++i)
        for (QChar c : candidates[static_cast<size_t>(i)])
            if (!owner.contains(c)) {
                owner[c] = i;
                chosen[static_cast<size_t>(i)] = c;
                break;
            }
    // A caption left without a letter may take one from an earlier sibling
    // that can move to another of its own (an augmenting path), so that as
    // many items as possible get one.
    std::function<bool(qsizetype, QSet<QChar>&)> place = [&](qsizetype i, QSet<QChar>& tried) {
        for (QChar c : candidates[static_cast<size_t>(i)]) {
            if (tried.contains(c)) continue;
            tried.insert(c);
            if (!owner.contains(c) || place(owner[c], tried)) {
                owner[c] = i;
                chosen[static_cast<size_t>(i)] = c;
                return true;
            }
        }
        return false;
    };
    for (qsizetype i = 0; i < n; ++i) {
        if (!chosen[static_cast<size_t>(i)].isNull()) continue;
        QSet<QChar> tried;
        place(i, tried);
    }

    QStringList texts;
    texts.reserve(n);
    for (qsizetype k = 0; k < n; ++k) {
        const QString& caption = captions[k];
        const QChar letter = chosen[static_cast<size_t>(k)];
        const qsizetype mark = letter.isNull() ? -1 : MarkPosition(caption, letter);
        QString text;
        text.reserve(caption.size() + 2);
        for (qsizetype i = 0; i < caption.size(); ++i) {
            if (i == mark) text += '&';
            if (caption[i] == '&') text += '&';
            text += caption[i];
        }
        texts << text;
    }
    return texts;
}

QString WithoutMnemonic(const QString& text) {
    QString caption;
    caption.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;  // "&&" keeps one, "&x" keeps x
        caption += text[i];
    }
    return caption;
}

QChar MnemonicOf(const QString& text) {
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&') continue;
        if (text[i + 1] != '&') return text[i + 1].toLower();
        ++i;
    }
    return {};
}

}  // namespace ortelix
