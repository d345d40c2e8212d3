#pragma once

// A program built without exceptions, such as the module of a page, ends where another one throws: there is
// nothing to catch in it. UX_TRY and UX_CATCH_ALL read as try and catch (...) where there are exceptions.
#if defined(__cpp_exceptions)
#    define UX_TRY try
#    define UX_CATCH_ALL catch (...)
#else
#    define UX_TRY if constexpr (true)
#    define UX_CATCH_ALL else
#endif
