"""Which instruction belongs to which instruction set, told by its mnemonic and operands as objdump prints them.

The names below are those of instructions beyond SSE2, which is the ground every build stands on. `tzcnt` is missing on
purpose: an older processor runs its bytes as `rep bsf`, with the same result for the operands that reach it.
"""
import re

SETS = {
    "SSE3": "addsubpd addsubps haddpd haddps hsubpd hsubps lddqu movddup movshdup movsldup "
            "fisttp fisttps fisttpl fisttpll",
    "SSSE3": "pabsb pabsw pabsd palignr phaddw phaddd phaddsw phsubw phsubd phsubsw pmaddubsw pmulhrsw pshufb "
             "psignb psignw psignd",
    "SSE4.1": "blendpd blendps blendvpd blendvps dppd dpps extractps insertps movntdqa mpsadbw packusdw pblendvb "
              "pblendw pcmpeqq pextrb pextrd pinsrb pinsrd phminposuw pmaxsb pmaxsd pmaxud pmaxuw pminsb pminsd pminud pminuw "
              "pmovsxbw pmovsxbd pmovsxbq pmovsxwd pmovsxwq pmovsxdq pmovzxbw pmovzxbd pmovzxbq pmovzxwd pmovzxwq "
              "pmovzxdq pmuldq pmulld ptest roundpd roundps roundsd roundss",
    "SSE4.2": "pcmpestri pcmpestrm pcmpistri pcmpistrm pcmpgtq crc32b crc32w crc32l",
    "POPCNT": "popcnt popcntl popcntw",
    "LZCNT": "lzcnt lzcntl lzcntw",
    "MOVBE": "movbe movbel movbew",
    "BMI1": "andn bextr blsi blsmsk blsr",
    "BMI2": "bzhi mulx pdep pext rorx sarx shlx shrx",
    "F16C": "vcvtph2ps vcvtps2ph",
    "AVX2": "vbroadcasti128 vextracti128 vinserti128 vperm2i128 vpermd vpermps vpermpd vpermq vpblendd vpbroadcastb "
            "vpbroadcastw vpbroadcastd vpbroadcastq vpmaskmovd vpmaskmovq vpsllvd vpsllvq vpsrlvd vpsrlvq vpsravd "
            "vgatherdpd vgatherqpd vgatherdps vgatherqps vpgatherdd vpgatherdq vpgatherqd vpgatherqq",
    "other": "prefetchw prefetchwt1 rdrand rdseed adcx adox aesenc aesenclast aesdec aesdeclast aesimc aeskeygenassist "
             "pclmulqdq sha1rnds4 sha256rnds2 vaesenc vaesdec vpclmulqdq emms femms extrq insertq movntsd movntss",
}
OF_MNEMONIC = {mnemonic: name for name, mnemonics in SETS.items() for mnemonic in mnemonics.split()}

# What a mnemonic can't tell by its name alone, in the order to try: instruction set, mnemonic, operands.
PATTERNS = [(name, re.compile(mnemonic), re.compile(operands)) for name, mnemonic, operands in (
    ("AVX-512", r".*", r"%zmm|%k[0-7]|\{"),
    ("AVX-512", r"vmovdq[ua](8|16|32|64)|vpternlog|vrndscale|vperm[ti]2|vp?compress|vp?expand|valign[dq]|vscalef"
                r"|vgetexp|vgetmant|vfixupimm|vrange|vreduce|vplzcnt|vpopcnt|vpconflict|vpmadd52|vpdp|vdbpsadbw"
                r"|vcvtt?p[sd]2u|vcvtu|vp(max|min)[su]q|vpmullq|vpabsq|vpsraq|vpsravq|vps[lr][la]vw|vpm?rol|vpror"
                r"|v(broadcast|insert|extract|shuf)[fi](32|64)x", r""),
    ("MMX", r".*", r"%mm[0-7]"),
    ("FMA", r"vfn?m(add|sub|addsub|subadd)(132|213|231)[ps][ds]$", r""),
    ("AVX", r"vpermil|vperm2f128|vptest|vtestp", r""),
    ("AVX2", r"vp|vmpsadbw|vmovntdqa", r"%ymm"),
    ("AVX2", r"vbroadcasts[sd]$", r"^%xmm"),
    ("AVX", r"v(?!err$|erw$)", r""),
    ("SSE4.1", r"pextrw$", r"\)$|,0x[0-9a-f]+$"),
)]

SSSE3 = {"SSE3", "SSSE3"}
SSE42 = SSSE3 | {"SSE4.1", "SSE4.2"}
AVX = SSE42 | {"AVX"}
AVX2 = AVX | {"AVX2", "FMA", "BMI1", "BMI2"}
# What each build may use; "once" is the code compiled once for all processors
# (the array layer never fuses a multiplication and an addition).
ALLOWED = {"once": set(), "array": set(), "arrayavx": AVX, "arrayavx2": AVX2 - {"FMA"},
           "w7": set(), "s8": SSSE3, "p8": SSE42, "g9": AVX, "h9": AVX2}
# Instruction sets that a build may use in functions with this name, which run only where noxHasFeature grants it.
BY_FUNCTION = {("g9", "F16C"): "f16c", ("h9", "F16C"): "f16c"}
# Builds whose vector instructions must all have the VEX form: mixing the two forms stalls the processor.
VEX_BUILDS = {"g9", "h9", "arrayavx", "arrayavx2"}


def instruction_set(mnemonic, operands):
    """The name of the instruction set beyond SSE2, or None."""
    if mnemonic in OF_MNEMONIC:
        return OF_MNEMONIC[mnemonic]
    for name, by_mnemonic, by_operands in PATTERNS:
        if by_mnemonic.match(mnemonic) and by_operands.search(operands):
            return name
    return None
