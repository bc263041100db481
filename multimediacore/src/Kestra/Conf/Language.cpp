// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/Language.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace Kestra::Conf {

namespace {

/// Two letters and the terminological three, one behind the other.
constexpr std::string_view CODES =
    "aa aar ab abk ae ave af afr ak aka am amh an arg ar ara as asm av ava ay aym az aze ba bak be bel bg bul bh bih "
    "bi bis bm bam bn ben bo bod br bre bs bos ca cat ce che ch cha co cos cr cre cs ces cu chu cv chv cy cym da dan "
    "de deu dv div dz dzo ee ewe el ell en eng eo epo es spa et est eu eus fa fas ff ful fi fin fj fij fo fao fr fra "
    "fy fry ga gle gd gla gl glg gn grn gu guj gv glv ha hau he heb hi hin ho hmo hr hrv ht hat hu hun hy hye hz her "
    "ia ina id ind ie ile ig ibo ii iii ik ipk io ido is isl it ita iu iku ja jpn jv jav ka kat kg kon ki kik kj kua "
    "kk kaz kl kal km khm kn kan ko kor kr kau ks kas ku kur kv kom kw cor ky kir la lat lb ltz lg lug li lim ln lin "
    "lo lao lt lit lu lub lv lav mg mlg mh mah mi mri mk mkd ml mal mn mon mr mar ms msa mt mlt my mya na nau nb nob "
    "nd nde ne nep ng ndo nl nld nn nno no nor nr nbl nv nav ny nya oc oci oj oji om orm or ori os oss pa pan pi pli "
    "pl pol ps pus pt por qu que rm roh rn run ro ron ru rus rw kin sa san sc srd sd snd se sme sg sag si sin sk slk "
    "sl slv sm smo sn sna so som sq sqi sr srp ss ssw st sot su sun sv swe sw swa ta tam te tel tg tgk th tha ti tir "
    "tk tuk tl tgl tn tsn to ton tr tur ts tso tt tat tw twi ty tah ug uig uk ukr ur urd uz uzb ve ven vi vie vo vol "
    "wa wln wo wol xh xho yi yid yo yor za zha zh zho zu zul ";

/// The terminological and the bibliographic code where they differ.
constexpr std::string_view BIBLIOGRAPHIC =
    "bod tib ces cze cym wel deu ger ell gre eus baq fas per fra fre hye arm isl ice kat geo mkd mac mri mao msa may "
    "mya bur nld dut ron rum slk slo sqi alb zho chi ";

/// The code and the name of the same language in FFmpeg's list of numbers, where that is neither form of the code.
constexpr std::string_view OWN_NAMES = "swe sve ";

/// What stands in that list; a language of the other form is looked for under it.
constexpr std::string_view QUICK_TIME =
    "eng fra ger ita dut sve spa dan por nor heb jpn ara fin gre ice mlt tur chi urd hin tha kor lit pol hun est lav "
    "rus alb ron ces slk slv yid mac bul ukr bel uzb kaz aze arm geo kir tgk tuk mon pus kur kas snd tib nep san mar "
    "ben asm guj ori mal kan tam tel bur khm lao vie ind tgl may amh tir som swa run mlg epo wel baq cat lat que grn "
    "aym tat uig dzo jav ";

/// What stands behind the word in a list of pairs; empty where it is not the first of one.
std::string SecondOf(std::string_view pairs, const std::string& first, std::size_t secondLength) {
    const std::size_t step = first.size() + secondLength + 2;
    for (std::size_t at = 0; at + step <= pairs.size(); at += step)
        if (pairs.compare(at, first.size(), first) == 0)
            return std::string(pairs.substr(at + first.size() + 1, secondLength));
    return {};
}

std::string FirstOf(std::string_view pairs, const std::string& second) {
    constexpr std::size_t LENGTH = 3;
    for (std::size_t at = 0; at + 2 * (LENGTH + 1) <= pairs.size(); at += 2 * (LENGTH + 1))
        if (pairs.compare(at + LENGTH + 1, LENGTH, second) == 0)
            return std::string(pairs.substr(at, LENGTH));
    return {};
}

bool Holds(std::string_view list, const std::string& code) {
    for (std::size_t at = 0; at + 4 <= list.size(); at += 4)
        if (list.compare(at, 3, code) == 0)
            return true;
    return false;
}

bool IsLetter(char letter) {
    return letter >= 'a' && letter <= 'z';
}

/// In lower case, without what stands behind a hyphen or an underscore, nor blanks behind it.
std::string PrimaryOf(const std::string& text) {
    std::string primary = text.substr(0, text.find_first_of("-_"));
    while (!primary.empty() && (primary.back() == ' ' || primary.back() == '\0'))
        primary.pop_back();
    for (char& letter : primary)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return primary;
}

} // namespace

std::string Language::CodeOf(const std::string& text) {
    std::string primary = PrimaryOf(text);
    if (!std::all_of(primary.begin(), primary.end(), IsLetter))
        return {};
    if (primary.size() == 2)
        return SecondOf(CODES, primary, 3);
    if (primary.size() != 3 || primary == "und")
        return {};
    for (const std::string_view pairs : {BIBLIOGRAPHIC, OWN_NAMES})
        if (std::string code = FirstOf(pairs, primary); !code.empty())
            return code;
    return primary;
}

bool Language::AreSame(const std::string& a, const std::string& b) {
    return CodeOf(a) == CodeOf(b);
}

std::string Language::BibliographicCode(const std::string& code) {
    const std::string other = SecondOf(BIBLIOGRAPHIC, code, 3);
    return other.empty() ? code : other;
}

std::string Language::QuickTimeName(const std::string& code) {
    for (const std::string& name : {code, BibliographicCode(code), SecondOf(OWN_NAMES, code, 3)})
        if (name.size() == 3 && Holds(QUICK_TIME, name))
            return name;
    return {};
}

} // namespace Kestra::Conf
