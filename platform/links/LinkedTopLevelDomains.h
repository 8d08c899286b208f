// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace zamber::links {

/// Whether a domain under that top-level domain is a link without anything in front of it. In any letter case, and in
/// either form of an international name.
bool isLinkedTopLevelDomain(QStringView label);

} // namespace zamber::links
