#!/usr/bin/env bash
# Shows that the check of the reference finds what lacks a comment, and nothing else: in a header of
# its own, the lines marked "bare". Use: check_reference_self_test.sh CHECK ROOT
set -euo pipefail

check=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
mkdir "$tree/src"
ln -s "$2/docs" "$2/tools" "$2/ARCHITECTURE.md" "$tree"

cat > "$tree/src/a.h" <<'HEADER'
namespace korvane {

/// A comment is for its paragraph.
int First();
int Second(int count = 3);

int BehindABlankLine(); // bare

/// Bodies may have blank lines.
inline int WithBody(int value)
{
    const int next{value};

    return next;
}
inline int BehindBody()
{
    return 0;
}
// This one is no documentation.
int BehindAPlainComment(); // bare

/// A class hands nothing on.
class TBase
{
public:
    TBase() = default;
    virtual ~TBase() = default;
    virtual int Bare() const = 0; // bare

    /// Pairs share one.
    int Value() const { return m_value; }
    void SetValue(int value)
    {
        m_value = value;
    }
    /// Another one.
    virtual int Own() const { return 1; }
    int OwnBehind = 2; ///< its own

protected:
    int BehindAccess = 0; // bare

private:
    int m_value = 0;
};
enum class TBehindClass { One }; // bare
/// Nor does an enumeration.
enum class TOther { One };
int BehindEnum(); // bare
struct TBehindFunction // bare
{
    int Field = 0; // bare
    /// Initialisers are no bodies.
    TBase *A = {};
    TBase *B = {};
};

/// Overrides inherit.
class TDerived : public TBase
{
public:
    /// Not for the next two.
    TDerived() = default;
    int Own() const override { return 2; }
    int Bare() const override { return 0; } // bare
    template <typename T>
    T BehindOverride(T value);
    TDerived(int a, int b)
        : m_a{a}
        , m_b{b}
    {
    }

private:
    int m_a = 0;
    int m_b = 0;
};

} // namespace korvane
HEADER

wanted=$(grep -n '// bare' "$tree/src/a.h" | cut -d: -f1)
status=0
warnings=$("$check" "$tree") || status=$?
[ "$status" -ne 77 ] || exit 77
found=$(sed -n 's|^src/a\.h:\([0-9]*\): warning: .* is not documented\.|\1|p' <<< "$warnings" | sort -nu)
if [ "$status" -ne 1 ] || [ "$wanted" != "$found" ]; then
    echo "exit status $status; expected lines: ${wanted//$'\n'/ }; found:"
    echo "$warnings"
    exit 1
fi
