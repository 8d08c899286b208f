// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/PropertyList.h"

#include <QDateTime>
#include <QXmlStreamReader>

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

namespace {

/// Deeper than any report, and shallow enough for the stack.
constexpr int DEEPEST_NESTING = 200;

class Reader {
public:
    explicit Reader(const QByteArray& bytes)
        : m_xml(bytes) {}

    std::expected<QVariant, QString> read() {
        QVariant value;
        if (m_xml.readNextStartElement() && m_xml.name() != "plist"_L1) {
            m_xml.raiseError(u"it is not a property list"_s);
        } else if (m_xml.readNextStartElement()) {
            value = readValue(0);
            expectNoMoreElements();
        } else if (!m_xml.hasError()) {
            m_xml.raiseError(u"the property list is empty"_s);
        }
        if (m_xml.hasError()) {
            return std::unexpected(
                u"The report can't be read: %1 (line %2)"_s.arg(m_xml.errorString()).arg(m_xml.lineNumber()));
        }
        return value;
    }

private:
    void expectNoMoreElements() {
        if (m_xml.readNextStartElement()) {
            m_xml.raiseError(u"there is more than one value"_s);
        }
        while (!m_xml.atEnd() && !m_xml.hasError()) {
            m_xml.readNext();
        }
    }

    /// The reader stands at the value's start; afterwards at its end.
    QVariant readValue(int depth) {
        if (depth > DEEPEST_NESTING) {
            m_xml.raiseError(u"it is nested too deeply"_s);
            return {};
        }
        const QStringView name = m_xml.name();
        if (name == "dict"_L1) {
            return readDictionary(depth);
        }
        if (name == "array"_L1) {
            return readArray(depth);
        }
        if (name == "true"_L1 || name == "false"_L1) {
            const bool isTrue = name == "true"_L1;
            readText();
            return isTrue;
        }
        return readScalar(name.toString());
    }

    QVariant readScalar(const QString& name) {
        const QString text = readText();
        bool isValid = true;
        QVariant value;
        if (name == "string"_L1) {
            value = text;
        } else if (name == "integer"_L1) {
            value = text.trimmed().toLongLong(&isValid, 0);
            if (!isValid) {
                value = text.trimmed().toULongLong(&isValid, 0);
            }
        } else if (name == "real"_L1) {
            value = text.trimmed().toDouble(&isValid);
        } else if (name == "date"_L1) {
            const QDateTime date = QDateTime::fromString(text.trimmed(), Qt::ISODate);
            isValid = date.isValid();
            value = date;
        } else if (name == "data"_L1) {
            value = QByteArray::fromBase64(text.toLatin1());
        } else {
            isValid = false;
        }
        if (!isValid && !m_xml.hasError()) {
            m_xml.raiseError(u"there is no such %1"_s.arg(name));
        }
        return value;
    }

    QString readText() { return m_xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement); }

    QVariant readArray(int depth) {
        QVariantList values;
        while (m_xml.readNextStartElement()) {
            values.append(readValue(depth + 1));
        }
        return values;
    }

    QVariant readDictionary(int depth) {
        QVariantMap values;
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() != "key"_L1) {
                m_xml.raiseError(u"a value has no key"_s);
                break;
            }
            const QString key = readText();
            if (!m_xml.readNextStartElement()) {
                m_xml.raiseError(u"a key has no value"_s);
                break;
            }
            values.insert(key, readValue(depth + 1));
        }
        return values;
    }

    QXmlStreamReader m_xml;
};

} // namespace

std::expected<QVariant, QString> readPropertyList(const QByteArray& bytes) {
    return Reader(bytes).read();
}

} // namespace zamber::freedesktop
