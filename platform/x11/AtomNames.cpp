// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/AtomNames.h"

namespace zamber::x11 {

AtomNames::AtomNames(Connection& connection)
    : m_connection(connection) {}

std::vector<QByteArray> AtomNames::namesOf(std::span<const xcb_atom_t> atoms) {
    if (m_names.size() > MOST_KNOWN) {
        m_names.clear();
        m_atoms.clear();
    }
    std::map<xcb_atom_t, xcb_get_atom_name_cookie_t> questions;
    for (const xcb_atom_t atom : atoms) {
        if (!m_names.contains(atom) && !questions.contains(atom)) {
            questions.emplace(atom, xcb_get_atom_name(m_connection.raw(), atom));
        }
    }
    for (const auto& [atom, cookie] : questions) {
        const Owned<xcb_get_atom_name_reply_t> reply(xcb_get_atom_name_reply(m_connection.raw(), cookie, nullptr));
        if (reply) {
            note(atom, QByteArray(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())));
        }
    }
    std::vector<QByteArray> names;
    names.reserve(atoms.size());
    for (const xcb_atom_t atom : atoms) {
        const auto known = m_names.find(atom);
        names.push_back(known == m_names.end() ? QByteArray() : known->second);
    }
    return names;
}

QByteArray AtomNames::nameOf(xcb_atom_t atom) {
    return namesOf({&atom, 1}).front();
}

std::vector<xcb_atom_t> AtomNames::atomsOf(std::span<const QByteArray> names) {
    std::map<QByteArray, xcb_intern_atom_cookie_t> questions;
    for (const QByteArray& name : names) {
        if (!m_atoms.contains(name) && !questions.contains(name)) {
            const auto length = static_cast<std::uint16_t>(name.size());
            questions.emplace(name, xcb_intern_atom(m_connection.raw(), 0, length, name.constData()));
        }
    }
    for (const auto& [name, cookie] : questions) {
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection.raw(), cookie, nullptr));
        if (reply) {
            note(reply->atom, name);
        }
    }
    std::vector<xcb_atom_t> atoms;
    atoms.reserve(names.size());
    for (const QByteArray& name : names) {
        const auto known = m_atoms.find(name);
        atoms.push_back(known == m_atoms.end() ? static_cast<xcb_atom_t>(XCB_ATOM_NONE) : known->second);
    }
    return atoms;
}

xcb_atom_t AtomNames::atomOf(const QByteArray& name) {
    return atomsOf({&name, 1}).front();
}

void AtomNames::note(xcb_atom_t atom, const QByteArray& name) {
    m_names.insert_or_assign(atom, name);
    m_atoms.insert_or_assign(name, atom);
}

} // namespace zamber::x11
