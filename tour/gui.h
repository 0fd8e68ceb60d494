// SPDX-License-Identifier: MIT
// The way from the operator's thread to the window, which lives in the GUI thread.
#pragma once

#include <QtCore/QCoreApplication>

#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace tour {

/// Runs the function in the GUI thread, waits for it and returns its result; an exception that it
/// throws comes back to the caller. Works as well while a message box is open.
template<typename Function> auto inGui(Function function)
{
    using Result = std::invoke_result_t<Function>;
    std::exception_ptr thrown;
    std::conditional_t<std::is_void_v<Result>, std::nullptr_t, std::optional<Result>> result{};
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [&] {
            try {
                if constexpr (std::is_void_v<Result>) {
                    function();
                } else {
                    result.emplace(function());
                }
            } catch (...) {
                thrown = std::current_exception();
            }
        },
        Qt::BlockingQueuedConnection);
    if (thrown) {
        std::rethrow_exception(thrown);
    }
    if constexpr (!std::is_void_v<Result>) {
        return std::move(*result);
    }
}

} // namespace tour
