// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <rapidcheck.h>

#include <QByteArray>
#include <QtGlobal>
#include <iostream>
#include <string>

namespace kxtest {

// Checks a rapidcheck property with Cases generated cases (RC_PARAMS may set max_success and the
// seed), printing rapidcheck's report; true when it holds. Database properties choose fewer
// cases than rapidcheck's hundred, since every case writes rows.
template<class Testable>
bool propertyHolds(const std::string &description, int cases, Testable &&testable)
{
    rc::detail::TestParams params = rc::detail::configuration().testParams;
    if (!qgetenv("RC_PARAMS").contains("max_success"))
        params.maxSuccess = cases;
    rc::detail::TestMetadata metadata;
    metadata.id = description;
    metadata.description = description;
    const auto result = rc::detail::checkTestable(std::forward<Testable>(testable), metadata, params);
    std::cerr << "- " << description << '\n';
    rc::detail::printResultMessage(result, std::cerr);
    std::cerr << std::endl;
    return result.template is<rc::detail::SuccessResult>();
}

} // namespace kxtest
