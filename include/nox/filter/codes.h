/* Codes that the filters share: methods and element types. */
#ifndef NOX_FILTER_CODES_H
#define NOX_FILTER_CODES_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/** Methods of filtering, the algType of an Init. */
enum NoxAlgType {
  NOX_ALG_AUTO = 0,   /**< the faster method, chosen at each call by the length of taps and of data */
  NOX_ALG_DIRECT = 1, /**< the direct sum */
  NOX_ALG_FFT = 2     /**< overlap-save: blocks of samples by Fourier transforms */
};

/** Element-type codes of the size queries. */
enum NoxTypeCode {
  NOX_TYPE_8U = 1,    /**< Nox8u */
  NOX_TYPE_16S = 7,   /**< Nox16s */
  NOX_TYPE_32S = 11,  /**< Nox32s */
  NOX_TYPE_32F = 13,  /**< Nox32f */
  NOX_TYPE_32FC = 14, /**< Nox32fc */
  NOX_TYPE_64F = 19,  /**< Nox64f */
  NOX_TYPE_64FC = 20  /**< Nox64fc */
};

NOX_END_DECLS

#endif
