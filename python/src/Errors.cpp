#include "python/src/Binding.h"

#include <exception>
#include <stdexcept>

namespace Veld::Quor::Python {

namespace {

/// What is thrown where the location is known.
class LocatedError : public std::runtime_error {
public:
    LocatedError(const std::string& message, Decks::Location location, bool isMissing)
        : std::runtime_error(message)
        , location_(std::move(location))
        , isMissing_(isMissing)
    {
    }
    const Decks::Location& GetLocation() const { return location_; }
    bool IsMissing() const { return isMissing_; }

private:
    Decks::Location location_;
    bool isMissing_;
};

void SetError(const char* type, const char* message, const Decks::Location& location)
{
    const py::object errors = py::module_::import("quor._errors").attr(type);
    const py::object file = location.file.empty() ? py::object(py::none()) : py::object(Text(location.file));
    const auto number = [](std::size_t value) {
        return value == 0 ? py::object(py::none()) : py::object(py::int_(value));
    };
    const py::object error = errors(Message(message), file, number(location.line), number(location.column));
    PyErr_SetObject(errors.ptr(), error.ptr());
}

/// What isn't there is a `QuorKeyError`, all else that the libraries throw a `QuorError`.
void Translate(std::exception_ptr pointer) // NOLINT(performance-unnecessary-value-param): as pybind11 has it
{
    try {
        if (pointer)
            std::rethrow_exception(pointer);
    } catch (const LocatedError& error) {
        SetError(error.IsMissing() ? "QuorKeyError" : "QuorError", error.what(), error.GetLocation());
    } catch (const Decks::KeywordNotFound& error) {
        SetError("QuorKeyError", error.what(), {});
    } catch (const Service::Exception& error) {
        SetError("QuorError", error.what(), {});
    }
}

} // namespace

void Raise(const std::string& message, const Decks::Location& location)
{
    throw LocatedError(message, location, false);
}

void RaiseMissing(const std::string& message, const Decks::Location& location)
{
    throw LocatedError(message, location, true);
}

void BindErrors(py::module_&)
{
    py::register_exception_translator(Translate);
}

} // namespace Veld::Quor::Python
