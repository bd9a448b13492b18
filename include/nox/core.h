/* Core queries and settings, aligned memory, and the version record.
 *
 * The noxs names here are served by the build in force like every primitive; the nox names have one body for all
 * processors. Everything here may be called from any thread, and before anything else. */
#ifndef NOX_CORE_H
#define NOX_CORE_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Text of a status code, such as "noxStsNoErr: No errors".
 * @param status any 32-bit value
 * @return a constant, zero-terminated text, never null; a value that is no code of the library gives the text of
 *         ::noxStsUnknownStatusCodeErr. The text of -9700 holds a "%s" that is not filled in.
 */
NOX_API(const char*) noxGetStatusString(NoxStatus status);

/**
 * @brief The features of the processor this process runs on.
 *
 * The mask is read once and kept for the life of the process.
 *
 * | bits | features |
 * | --- | --- |
 * | 0 to 7 | MMX, SSE, SSE2, SSE3, SSSE3, MOVBE, SSE4.1, SSE4.2 |
 * | 8, 9 | AVX in the processor, AVX state saved by the operating system |
 * | 10 to 14 | AES, PCLMULQDQ, never set, RDRAND, F16C |
 * | 15 | FMA, AVX2, BMI1 and BMI2 together |
 * | 16 to 19 | ADX, RDSEED, PREFETCHW, SHA |
 * | 20 to 27 | AVX-512 F, CD, ER, PF, BW, DQ, VL, VBMI |
 * | 28 to 31 | MPX, AVX-512 4FMAPS, AVX-512 4VNNIW, processor of family 11 and model 1 |
 * | 32 to 36 | AVX-512 IFMA, AVX-512 state saved, VPOPCNTDQ, BITALG, FP16 |
 *
 * @param pFeaturesMask   takes the mask. If its 8 bytes hold the letters "getinfoa" before the call, the query of
 *                        @p pCpuidInfoRegs is free: the leaf in word 0, the subleaf in word 2.
 * @param pCpuidInfoRegs  null, or four words that take EAX, EBX, ECX, EDX of CPUID leaf 1 (or of the free query)
 * @return ::noxStsNotSupportedCpu without CPUID, tested before the pointer; ::noxStsNullPtrErr for a null
 *         @p pFeaturesMask; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxGetCpuFeatures(Nox64u* pFeaturesMask, Nox32u* pCpuidInfoRegs);

/**
 * @brief Selects the build that serves every later call of the process, in every thread.
 *
 * The highest build whose features the mask holds is taken: 0x81DF gives h9, 0x1DF g9, 0xDF p8, 0x1F s8, 0x7 w7.
 * Calls in flight end in the build they began in; records made under one build must not be used under another.
 *
 * @param featuresMask  mask of noxGetCpuFeatures(). With bit 63 set it is taken on trust, without a look at the
 *                      processor: a build that the processor can't run then faults at its first call.
 * @return ::noxStsNoErr; ::noxStsFeatureNotSupported if the processor lacks a requested feature (the request is
 *         obeyed all the same, but for AVX and AVX-512 where the operating system doesn't save their state);
 *         ::noxStsFeaturesCombination if the mask has a gap, which is filled; ::noxStsNotSupportedCpu for a mask
 *         with none of SSE to AVX2, which selects w7
 */
NOX_API(NoxStatus) noxSetCpuFeatures(Nox64u featuresMask);

/**
 * @brief The feature mask in force.
 * @return the mask last selected, at load or by noxSetCpuFeatures(), with the bits the build in force requires
 */
NOX_API(Nox64u) noxGetEnabledCpuFeatures(void);

/**
 * @brief The processor's time-stamp counter.
 * @return the count, read without serialisation
 */
NOX_API(Nox64u) noxGetCpuClocks(void);

/**
 * @brief Measures the rate of the time-stamp counter against the wall clock; takes between two and three seconds.
 * @param pMhz  takes the rate in MHz, rounded down
 * @return ::noxStsNullPtrErr for a null pointer, otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxGetCpuFreqMhz(int* pMhz);

/**
 * @brief Size of the processor's largest data or unified cache. Asked once, then remembered, failures included.
 * @param pSizeByte  takes the size in bytes; -1 with ::noxStsNotSupportedCpu, 0 with ::noxStsUnknownCacheSize
 * @return ::noxStsNullPtrErr for a null pointer; ::noxStsNotSupportedCpu on a processor of a vendor other than
 *         GenuineIntel; ::noxStsUnknownCacheSize where no size is told; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxGetMaxCacheSizeB(int* pSizeByte);

/**
 * @brief Number of cores on the processor die, as the processor tells it.
 * @return the number; 1 where the processor doesn't tell
 */
NOX_API(int) noxGetNumCoresOnDie(void);

/**
 * @brief Switches the denormals-are-zeros mode of the calling thread; flush-to-zero stays as it is.
 * @param value  not 0: denormal operands count as zero; 0: they count as they are
 * @return ::noxStsCpuNotSupportedErr on a processor without the mode, otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxSetDenormAreZeros(int value);

/**
 * @brief Does nothing: the library runs in the caller's thread alone.
 * @param numThreads  ignored
 * @return ::noxStsNoOperation
 */
NOX_API(NoxStatus) noxSetNumThreads(int numThreads);

/**
 * @brief Number of threads of the library, which is always 1.
 * @param pNumThreads  takes 1
 * @return ::noxStsNullPtrErr for a null pointer, otherwise ::noxStsNoOperation
 */
NOX_API(NoxStatus) noxGetNumThreads(int* pNumThreads);

/**
 * @brief Version record of the build in force.
 * @return the constant record of the build; `targetCpu` tells which one it is
 */
NOX_API(const NoxLibraryVersion*) noxsGetLibVersion(void);

/**
 * @brief Allocates memory for @p len elements at a 64-byte boundary; not cleared.
 * @param len  number of elements
 * @return the memory, to be given back to noxsFree(); null for a length below 1, for more than 0x7FFFFFFF bytes and
 *         where the system has no memory left
 */
NOX_API(Nox32s*) noxsMalloc_32s(int len);
/** @copydoc noxsMalloc_32s */
NOX_API(Nox32sc*) noxsMalloc_32sc(int len);
/** @copydoc noxsMalloc_32s */
NOX_API(Nox64f*) noxsMalloc_64f(int len);
/** @copydoc noxsMalloc_32s */
NOX_API(Nox64fc*) noxsMalloc_64fc(int len);

/**
 * @brief Frees memory of a noxsMalloc function; any other pointer is undefined behaviour.
 * @param ptr  the memory, or null, which is ignored
 */
NOX_API(void) noxsFree(void* ptr);

NOX_END_DECLS

#endif
