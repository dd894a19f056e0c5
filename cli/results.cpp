#include "cli/results.h"

#include "cli/messages.h"

#include <algorithm>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

cResults::cResults(QSet<FILEID_T> inputs, bool isQuiet)
    : m_inputs(std::move(inputs)), m_isQuiet(isQuiet)
{
}

void cResults::add(const QString &archive, RESULT_T result, const QByteArray &before)
{
    const QString name = displayName(archive, u"standard input"_s);
    if (result.failure.isEmpty())
        result.failure = _publish(result);
    for (const QString &warning : std::as_const(result.warnings))
        complain(u"%1: warning: %2"_s.arg(name, warning));
    if (!result.failure.isEmpty()) {
        fail(name, result.failure);
        return;
    }
    const auto isSkipped = [](const auto &file) { return file->isSkipped(); };
    if (!result.files.isEmpty() &&
        std::all_of(result.files.cbegin(), result.files.cend(), isSkipped))
        result.summary = u"skipped, %1 already exists"_s.arg(result.files.constFirst()->name());
    if (!result.summary.isEmpty() && !m_isQuiet)
        std::fprintf(stderr, "%s\n", qPrintable(printable(name + u": "_s + result.summary)));
    if (!result.output.isEmpty()) {
        _write(before + result.output);
        m_isEmpty = false;
    }
}

void cResults::fail(const QString &file, const QString &reason)
{
    complain(file + u": "_s + reason);
    m_status = EXIT_SOME_FAILED;
}

int cResults::finish(const QByteArray &after)
{
    _write(after);
    if (m_output && !m_output->commit())
        fail(u"standard output"_s, m_output->error());
    return m_status;
}

// Publishes the files of a result under their names, after all of them have been written to the
// disk: if one cannot be written, none is published. Returns an error message, empty on success.
QString cResults::_publish(const RESULT_T &result)
{
    for (const bool publish : {false, true}) {
        for (const auto &file : result.files) {
            QString reason;
            if (const auto id = regularFile(file->name(), -1); id && m_protected.contains(*id))
                reason = u"another archive has the same output"_s;
            else if (!(publish ? file->commit() : file->finish()))
                reason = file->error();
            if (!reason.isEmpty()) {
                const QString name = displayName(file->name(), u"standard output"_s);
                return u"cannot write %1: %2"_s.arg(name, reason);
            }
            if (const auto id = regularFile(file->name(), -1); id && publish)
                m_protected.insert(*id);
        }
    }
    return {};
}

void cResults::_write(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return;
    if (!m_output)
        m_output = std::make_unique<cOutputFile>(STANDARD_STREAM, EXISTING_FAIL, m_inputs);
    m_output->slot_Data(bytes);
    m_output->flush();
}
