// Module table of JAZWFMSC: one row per conversion, in the order hosts list them.
// Columns: name, min w, max w, default w, min d, max d, default d, routine
// (nullptr: no conversion in this library yet), national flag.
#pragma once

#include "catalog/catalog.hpp"

namespace xfmt::catalog {

inline constexpr fmtinfo_eachfmt jazwfmsc_rows[] = {
    row("$BASE64X", 1, 32767, 8, 0, 0, 0, zfmb64x),  // zfmb64x
    row("$BIDI", 1, 32767, 1, 0, 0, 0, zfmbidi),  // zfmbidi
    row("$LOGVS", 1, 32767, 1, 0, 0, 0, zfmlogvs),  // zfmlogvs
    row("$LOGVSR", 1, 32767, 1, 0, 0, 0, zfmlogvsr),  // zfmlogvsr
    row("$QUOTE", 2, 32767, 2, 0, 0, 0, zfmquote),  // zfmquote
    row("$VSLOG", 1, 32767, 1, 0, 0, 0, zfmvslog),  // zfmvslog
    row("$VSLOGR", 1, 32767, 1, 0, 0, 0, zfmvslogr),  // zfmvslogr
    row("COMMA", 2, 32, 6, 0, 31, 0, zfmcma),  // zfmcma
    row("COMMAX", 2, 32, 6, 0, 31, 0, zfmcmax),  // zfmcmax
    row("D", 1, 32, 12, 0, 16, 3, zfmd),  // zfmd
    row("DOLLAR", 2, 32, 6, 0, 31, 0, zfmdlr),  // zfmdlr
    row("DOLLARX", 2, 32, 6, 0, 31, 0, zfmdlrx),  // zfmdlrx
    row("EURFRATS", 1, 32, 6, 0, 31, 0, eurfrats),  // euro: ATS
    row("EURFRBEF", 1, 32, 6, 0, 31, 0, eurfrbef),  // euro: BEF
    row("EURFRFIM", 1, 32, 6, 0, 31, 0, eurfrfim),  // euro: FIM
    row("EURFRFRF", 1, 32, 6, 0, 31, 0, eurfrfrf),  // euro: FRF
    row("EURFRDEM", 1, 32, 6, 0, 31, 0, eurfrdem),  // euro: DEM
    row("EURFRIEP", 1, 32, 6, 0, 31, 0, eurfriep),  // euro: IEP
    row("EURFRITL", 1, 32, 6, 0, 31, 0, eurfritl),  // euro: ITL
    row("EURFRLUF", 1, 32, 6, 0, 31, 0, eurfrluf),  // euro: LUF
    row("EURFRNLG", 1, 32, 6, 0, 31, 0, eurfrnlg),  // euro: NLG
    row("EURFRPTE", 1, 32, 6, 0, 31, 0, eurfrpte),  // euro: PTE
    row("EURFRESP", 1, 32, 6, 0, 31, 0, eurfresp),  // euro: ESP
    row("EURFRCHF", 1, 32, 6, 0, 31, 0, eurfrchf),  // euro: CHF
    row("EURFRDKK", 1, 32, 6, 0, 31, 0, eurfrdkk),  // euro: DKK
    row("EURFRGBP", 1, 32, 6, 0, 31, 0, eurfrgbp),  // euro: GBP
    row("EURFRGRD", 1, 32, 6, 0, 31, 0, eurfrgrd),  // euro: GRD
    row("EURFRSEK", 1, 32, 6, 0, 31, 0, eurfrsek),  // euro: SEK
    row("EURFRCZK", 1, 32, 6, 0, 31, 0, eurfrczk),  // euro: CZK
    row("EURFRHUF", 1, 32, 6, 0, 31, 0, eurfrhuf),  // euro: HUF
    row("EURFRNOK", 1, 32, 6, 0, 31, 0, eurfrnok),  // euro: NOK
    row("EURFRRUR", 1, 32, 6, 0, 31, 0, eurfrrur),  // euro: RUR
    row("EURFRTRL", 1, 32, 6, 0, 31, 0, eurfrtrl),  // euro: TRL
    row("EURFRPLZ", 1, 32, 6, 0, 31, 0, eurfrplz),  // euro: PLZ
    row("EURFRROL", 1, 32, 6, 0, 31, 0, eurfrrol),  // euro: ROL
    row("EURFRYUD", 1, 32, 6, 0, 31, 0, eurfryud),  // euro: YUD
    row("EURFRSIT", 1, 32, 6, 0, 31, 0, eurfrsit),  // euro: SIT
    row("EURO", 2, 32, 6, 0, 31, 0, zfmeuro),  // zfmeuro
    row("EUROX", 2, 32, 6, 0, 31, 0, zfmerx),  // zfmerx
    row("EURTOATS", 1, 32, 6, 0, 31, 0, eurtoats),  // euro: ATS
    row("EURTOBEF", 1, 32, 6, 0, 31, 0, eurtobef),  // euro: BEF
    row("EURTOFIM", 1, 32, 6, 0, 31, 0, eurtofim),  // euro: FIM
    row("EURTOFRF", 1, 32, 6, 0, 31, 0, eurtofrf),  // euro: FRF
    row("EURTODEM", 1, 32, 6, 0, 31, 0, eurtodem),  // euro: DEM
    row("EURTOIEP", 1, 32, 6, 0, 31, 0, eurtoiep),  // euro: IEP
    row("EURTOITL", 1, 32, 6, 0, 31, 0, eurtoitl),  // euro: ITL
    row("EURTOLUF", 1, 32, 6, 0, 31, 0, eurtoluf),  // euro: LUF
    row("EURTONLG", 1, 32, 6, 0, 31, 0, eurtonlg),  // euro: NLG
    row("EURTOPTE", 1, 32, 6, 0, 31, 0, eurtopte),  // euro: PTE
    row("EURTOESP", 1, 32, 6, 0, 31, 0, eurtoesp),  // euro: ESP
    row("EURTOCHF", 1, 32, 6, 0, 31, 0, eurtochf),  // euro: CHF
    row("EURTODKK", 1, 32, 6, 0, 31, 0, eurtodkk),  // euro: DKK
    row("EURTOGBP", 1, 32, 6, 0, 31, 0, eurtogbp),  // euro: GBP
    row("EURTOGRD", 1, 32, 6, 0, 31, 0, eurtogrd),  // euro: GRD
    row("EURTOSEK", 1, 32, 6, 0, 31, 0, eurtosek),  // euro: SEK
    row("EURTOCZK", 1, 32, 6, 0, 31, 0, eurtoczk),  // euro: CZK
    row("EURTOHUF", 1, 32, 6, 0, 31, 0, eurtohuf),  // euro: HUF
    row("EURTONOK", 1, 32, 6, 0, 31, 0, eurtonok),  // euro: NOK
    row("EURTORUR", 1, 32, 6, 0, 31, 0, eurtorur),  // euro: RUR
    row("EURTOTRL", 1, 32, 6, 0, 31, 0, eurtotrl),  // euro: TRL
    row("EURTOPLZ", 1, 32, 6, 0, 31, 0, eurtoplz),  // euro: PLZ
    row("EURTOROL", 1, 32, 6, 0, 31, 0, eurtorol),  // euro: ROL
    row("EURTOYUD", 1, 32, 6, 0, 31, 0, eurtoyud),  // euro: YUD
    row("EURTOSIT", 1, 32, 6, 0, 31, 0, eurtosit),  // euro: SIT
    row("FRACT", 4, 32, 10, 0, 0, 0, zfmfract),  // zfmfract
    row("NEGPAREN", 1, 32, 6, 0, 31, 0, zfmnprn),  // zfmnprn
    row("ODDSR", 3, 32, 7, 0, 31, 3, zfmoddsr),  // zfmoddsr
    row("PERCENT", 4, 32, 6, 0, 31, 0, zfmpct),  // zfmpct
    row("PERCENTN", 4, 32, 6, 0, 31, 0, pctn),  // pctn
    row("ROMAN", 2, 32, 6, 0, 0, 0, zfmroman),  // zfmroman
    row("SIZEK", 2, 33, 9, 0, 31, 0, zfmsizek),  // zfmsizek
    row("SIZEKB", 2, 33, 9, 0, 31, 0, zfmsizekb),  // zfmsizekb
    row("SIZEKMG", 2, 33, 9, 0, 31, 0, zfmsizekmg),  // zfmsizekmg
    row("SSN", 11, 11, 11, 0, 0, 0, zfmssn),  // zfmssn
    row("WORDF", 5, 32767, 10, 0, 0, 0, zfmwordf),  // zfmwordf
    row("WORDS", 5, 32767, 10, 0, 0, 0, zfmwords),  // zfmwords
    row("Z", 1, 32, 1, 0, 32, 0, zfmz),  // zfmz
    row("BEST", 1, 32, 12, 0, 32, 0, zfmb),  // zfmb
    row("BESTX", 1, 64, 12, 0, 32, 0, zfmbx),  // zfmbx
    row("$CHAR", 1, 32767, 8, 0, 0, 0, zfmchar),  // zfmchar
    row("F", 1, 32, 12, 0, 31, 0, zfmt),  // zfmt
    row("E", 1, 32, 12, 0, 31, 0, zfmexp),  // zfmexp
};

}  // namespace xfmt::catalog
