/* Element types, records and the declaration macros of the library.
 *
 * Arrays are written `T p[]`, single results, records and memory `T* p`. An array of complex records is an array of
 * interleaved real and imaginary parts. Lengths and indexes are `int`: counts of elements, never of bytes. */
#ifndef NOX_TYPES_H
#define NOX_TYPES_H

#include <stddef.h>
#include <stdint.h>

#include "nox/status.h"

/** Declares an exported function that returns `type`. */
#if defined(__GNUC__)
#define NOX_API(type) __attribute__((visibility("default"))) extern type
#else
#define NOX_API(type) extern type
#endif

/** Marks an array argument that may be null; its index form then passes null on, whatever the index. */
#define NOX_NULLABLE

#ifdef __cplusplus
#define NOX_BEGIN_DECLS extern "C" {
#define NOX_END_DECLS }
#else
#define NOX_BEGIN_DECLS
#define NOX_END_DECLS
#endif

typedef uint8_t Nox8u;   /**< Unsigned 8-bit; three of them, least significant first, make a 24-bit value. */
typedef int8_t Nox8s;    /**< Signed 8-bit. */
typedef uint16_t Nox16u; /**< Unsigned 16-bit. */
typedef int16_t Nox16s;  /**< Signed 16-bit. */
typedef uint16_t Nox16f; /**< IEEE-754 binary16, held in 16 bits. */
typedef uint32_t Nox32u; /**< Unsigned 32-bit. */
typedef int32_t Nox32s;  /**< Signed 32-bit. */
typedef float Nox32f;    /**< IEEE-754 binary32. */
typedef uint64_t Nox64u; /**< Unsigned 64-bit. */
typedef int64_t Nox64s;  /**< Signed 64-bit. */
typedef double Nox64f;   /**< IEEE-754 binary64, the working format of the library. */

/** Complex value of two Nox16s. */
typedef struct Nox16sc {
  Nox16s re; /**< Real part. */
  Nox16s im; /**< Imaginary part. */
} Nox16sc;

/** Complex value of two Nox32s. */
typedef struct Nox32sc {
  Nox32s re; /**< Real part. */
  Nox32s im; /**< Imaginary part. */
} Nox32sc;

/** Complex value of two Nox64s. */
typedef struct Nox64sc {
  Nox64s re; /**< Real part. */
  Nox64s im; /**< Imaginary part. */
} Nox64sc;

/** Complex value of two Nox32f. */
typedef struct Nox32fc {
  Nox32f re; /**< Real part. */
  Nox32f im; /**< Imaginary part. */
} Nox32fc;

/** Complex value of two Nox64f. */
typedef struct Nox64fc {
  Nox64f re; /**< Real part. */
  Nox64f im; /**< Imaginary part. */
} Nox64fc;

/** Constant record that tells which build of the library is in force. */
typedef struct NoxLibraryVersion {
  Nox32s major;          /**< Major version. */
  Nox32s minor;          /**< Minor version. */
  Nox32s update;         /**< Update within the minor version. */
  Nox32s build;          /**< Build number. */
  char targetCpu[4];     /**< Tag of the build, "w7", "s8", "p8", "g9" or "h9", then zero bytes. */
  const char* name;      /**< Name of the build, such as "noxSP AVX2 (h9)". */
  const char* version;   /**< The version as a text. */
  const char* buildDate; /**< Date of the version. */
} NoxLibraryVersion;

/** Spec record of the single-rate FIR filter; read-only after its Init, so it may be shared by threads. */
typedef struct NoxFirSpec NoxFirSpec;

/** Spec record of the multi-rate FIR filter; threads may share it but for calls in place, which stage outputs in it. */
typedef struct NoxFirMrSpec NoxFirMrSpec;

/** State of a recursive filter, with its delay line: it belongs to one stream. */
typedef struct NoxIIRState NoxIIRState;

/** Spec record of a cosine transform; read-only after its Init, so it may be shared by threads. */
typedef struct NoxDctSpec NoxDctSpec;

/** Handle of a one-call cosine transform: spec and work buffer behind one pointer. */
typedef struct NoxDctHandle NoxDctHandle;

/** Handle of a one-call filter: spec, delay lines and work buffer behind one pointer. */
typedef struct NoxFilterHandle NoxFilterHandle;

/* Records of the random generators. They hold no pointers: a copy saves a stream, and putting it back restores it. */
/** Record of uniform Nox8u values. */
typedef struct NoxRandUniformState_8u NoxRandUniformState_8u;
/** Record of uniform Nox16s values. */
typedef struct NoxRandUniformState_16s NoxRandUniformState_16s;
/** Record of uniform Nox64f values. */
typedef struct NoxRandUniformState_64f NoxRandUniformState_64f;
/** Record of normally distributed Nox8u values. */
typedef struct NoxRandGaussState_8u NoxRandGaussState_8u;
/** Record of normally distributed Nox16s values. */
typedef struct NoxRandGaussState_16s NoxRandGaussState_16s;
/** Record of normally distributed Nox32f values. */
typedef struct NoxRandGaussState_32f NoxRandGaussState_32f;
/** Record of normally distributed Nox64f values. */
typedef struct NoxRandGaussState_64f NoxRandGaussState_64f;

/** Spec of the filter with border, in memory of the caller. */
typedef struct NoxFilterBorderSpec NoxFilterBorderSpec;

#endif
