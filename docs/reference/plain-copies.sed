# What Doxygen reads of a header: without the copies, moves and assignments that have no docstring. They are declared
# so that their code is in the library, and do what the language says. One with a docstring stays, and so does a
# deleted one. Lines keep their numbers.
/^ *\/\/\//{
:docstring
n
/^ *\/\/\//b docstring
b
}
s/^ +(\w+)\((const )?\1&&?\)( noexcept)?( = default)?;( \/\/.*)?$//
s/^ +(\w+)& operator=\((const )?\1&&?\)( noexcept)?( = default)?;( \/\/.*)?$//
