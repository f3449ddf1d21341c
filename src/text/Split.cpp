#include <vantor/Strings.h>

#include <string_view>

namespace vantor
{
namespace
{
template <class Container>
void Split(const wchar_t* multiString, Container& out)
{
    Container pieces;
    multiString = OrEmpty(multiString);
    while (*multiString)
    {
        std::wstring piece(multiString);
        multiString += piece.size() + 1;
        pieces.insert(pieces.end(), std::move(piece));
    }
    out.swap(pieces);
}

template <class Container>
void Split(const wchar_t* text, const wchar_t* delimiter, Container& out, bool keepTrailingEmpty)
{
    const std::wstring_view whole(OrEmpty(text));
    const std::wstring_view border(OrEmpty(delimiter));
    Container pieces;   // `text` may stand in `out`
    std::size_t pos = 0;
    do
    {
        const std::size_t found = border.empty() ? whole.npos : whole.find(border, pos);
        const std::size_t end = found == whole.npos ? whole.size() : found;
        pieces.insert(pieces.end(), std::wstring(whole.substr(pos, end - pos)));
        if (found == whole.npos)
            break;
        pos = found + border.size();
        if (pos == whole.size() && keepTrailingEmpty)
            pieces.insert(pieces.end(), ustring());
    } while (pos < whole.size());
    out.swap(pieces);
}

template <class Container>
void Split(const wchar_t* text, wchar_t delimiter, Container& out, bool keepTrailingEmpty)
{
    const wchar_t border[] = {delimiter, 0};
    Split(text, border, out, keepTrailingEmpty);
}
}   // namespace

void ustring::split(const wchar_t* multiString, std::vector<ustring>& out)
{
    Split(multiString, out);
}

void ustring::split(const wchar_t* multiString, std::list<ustring>& out)
{
    Split(multiString, out);
}

void ustring::split(const wchar_t* multiString, std::set<ustring, LessStrW>& out)
{
    Split(multiString, out);
}

void ustring::split(const wchar_t* text, wchar_t delimiter, std::vector<ustring>& out, bool keepTrailingEmpty)
{
    Split(text, delimiter, out, keepTrailingEmpty);
}

void ustring::split(const wchar_t* text, wchar_t delimiter, std::list<ustring>& out, bool keepTrailingEmpty)
{
    Split(text, delimiter, out, keepTrailingEmpty);
}

void ustring::split(const wchar_t* text, wchar_t delimiter, std::set<ustring, LessStrW>& out, bool keepTrailingEmpty)
{
    Split(text, delimiter, out, keepTrailingEmpty);
}

void ustring::split(const wchar_t* text, const wchar_t* delimiter, std::vector<ustring>& out, bool keepTrailingEmpty)
{
    Split(text, delimiter, out, keepTrailingEmpty);
}

void ustring::split(const wchar_t* text, const wchar_t* delimiter, std::list<ustring>& out, bool keepTrailingEmpty)
{
    Split(text, delimiter, out, keepTrailingEmpty);
}

void ustring::split(const wchar_t* text, const wchar_t* delimiter, std::set<ustring, LessStrW>& out,
                    bool keepTrailingEmpty)
{
    Split(text, delimiter, out, keepTrailingEmpty);
}
}   // namespace vantor
