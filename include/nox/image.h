/* Two-dimensional filters on planes of pixels.
 *
 * A plane is rows of pixels, one step in bytes apart, which needn't be a multiple of the pixel. A region of it is given
 * by the address of its first pixel, width and height. */
#ifndef NOX_IMAGE_H
#define NOX_IMAGE_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/** Border types: one of the first three, plus those of the others whose side has its pixels in memory. */
enum NoxBorderType {
  noxBorderRepl = 1,         /**< the nearest edge pixel */
  noxBorderMirror = 3,       /**< reflection about the edge pixel, which isn't repeated */
  noxBorderConst = 6,        /**< a constant */
  noxBorderInMemTop = 16,    /**< rows above the region are in memory */
  noxBorderInMemBottom = 32, /**< rows below */
  noxBorderInMemLeft = 64,   /**< columns to the left */
  noxBorderInMemRight = 128  /**< columns to the right; all four may stand without one of the first three */
};

/**
 * @brief Sizes of the spec and of the work buffer of a filter with border, for the build in force.
 *
 * Both include the slack for any base address. Types are told as 1 for Nox8u, 5 for Nox16u, 7 for Nox16s, 13 for Nox32f
 * and 19 for Nox64f: data and kernel of 19 with one channel, or data of the other four with a kernel of 7 or 13 and up
 * to 4 channels. A filter exists for one channel of 13.
 *
 * @param kernelWidth   width of the kernel, at least 1
 * @param kernelHeight  height of the kernel, at least 1
 * @param roiWidth      width of the region, at least 1
 * @param roiHeight     height of the region, at least 1
 * @param dataType      type of the pixels
 * @param kernelType    type of the coefficients
 * @param numChannels   number of channels
 * @param pSpecSize     takes the bytes of the spec
 * @param pBufferSize   takes the bytes of the work buffer of one call
 * @return ::noxStsSizeErr for a size below 1, then ::noxStsDataTypeErr for another pair of types, then
 *         ::noxStsChannelErr for another number of channels, then ::noxStsNullPtrErr for a null pointer;
 *         ::noxStsExceededSizeErr with a size of 0 where it would pass 2^31 - 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxiFilterBorderGetSize(int kernelWidth, int kernelHeight, int roiWidth, int roiHeight, int dataType, int kernelType,
                        int numChannels, int* pSpecSize, int* pBufferSize);

/**
 * @brief Builds the spec of a filter with border. Equal in all builds.
 * @param pKernel       the kernel, row by row, at any alignment; may stand 128 bytes behind the spec's first 64-byte
 *                      boundary, where its copy comes to stand, and must not overlap the spec otherwise
 * @param kernelWidth   width of the kernel, at least 1
 * @param kernelHeight  height of the kernel, at least 1
 * @param dataType      type of the pixels: 1, 5, 7 or 13; only a spec for 13 serves noxiFilterBorder_32f_C1R()
 * @param numChannels   number of channels, 1 to 4
 * @param roundMode     0, 1 or 2, which matter to integers alone; bit 16 asks for an accurate mode, which doesn't exist
 * @param pSpec         memory of the size noxiFilterBorderGetSize() told for a kernel of type 13, at any address
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a size below 1, then ::noxStsDataTypeErr,
 *         ::noxStsChannelErr and ::noxStsRoundModeNotSupportedErr for other values than those above;
 *         ::noxStsAccurateModeNotSupported with the spec built if bit 16 is set; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxiFilterBorderInit_32f(const Nox32f pKernel[], int kernelWidth, int kernelHeight, int dataType, int numChannels,
                         int roundMode, NoxFilterBorderSpec* pSpec);

/**
 * @brief Stores hint and offset in a spec; both matter to integers alone. Equal in all builds.
 * @param hint    any value
 * @param offset  0 for specs of Nox16s and Nox32f
 * @param pSpec   a built spec
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsNotSupportedModeErr for an offset other than 0 in a spec
 *         that knows none; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxiFilterBorderSetMode(int hint, int offset, NoxFilterBorderSpec* pSpec);

/**
 * @brief Filters a region of float pixels, with border pixels made where there are none in memory.
 *
 * `dst(x, y)` is the sum over i, j of `K[i][j] * src(x + j - ax, y + i - ay)` with the anchor `ax = (width - 1) / 2`,
 * `ay = (height - 1) / 2` of the kernel. Row by row of the kernel, taps 0, 2, 4... of the row are added to the running
 * sum, taps 1, 3, 5... to a sum from 0 that joins it at the row's end; so an output doesn't depend on its place. The h9
 * build fuses multiply and add; the other four are equal bit for bit. NaN and infinity spread to the outputs whose
 * windows hold them. Mirroring goes to and fro inside the region where the kernel is larger. Any number of threads may
 * share a spec, each with its own buffer.
 *
 * @param pSrc          first pixel of the region, at any address; on sides in memory the kernel's reach is read too
 * @param srcStep       bytes from row to row, at least 1
 * @param pDst          first output, at any address; must not overlap the pixels read
 * @param dstStep       bytes from row to row of the outputs, at least 4 * @p roiWidth; gaps aren't written
 * @param roiWidth      width of the region
 * @param roiHeight     height of the region
 * @param borderType    of ::NoxBorderType
 * @param pBorderValue  the constant of ::noxBorderConst; otherwise not read and may be null
 * @param pSpec         a spec built by noxiFilterBorderInit_32f() for this type
 * @param pBuffer       work memory of the size noxiFilterBorderGetSize() told, at any address
 * @return ::noxStsNullPtrErr for a null pointer, also for a null constant that is needed, then ::noxStsSizeErr for a
 *         region below 1, then ::noxStsStepErr for a step below its least, then ::noxStsBorderErr for another border
 *         type; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxiFilterBorder_32f_C1R(const Nox32f pSrc[], int srcStep, Nox32f pDst[], int dstStep, int roiWidth, int roiHeight,
                         int borderType, NOX_NULLABLE const Nox32f* pBorderValue, const NoxFilterBorderSpec* pSpec,
                         Nox8u* pBuffer);

/**
 * @brief Size of the work buffer of noxiFilter_64f_C1R(), for the build in force; the w7 build needs none.
 * @param kernelWidth   width of the kernel, at least 1
 * @param kernelHeight  height of the kernel, at least 1
 * @param roiWidth      width of the region, at least 1
 * @param pBufferSize   takes the bytes of the work buffer
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a size below 1, then ::noxStsExceededSizeErr
 *         with a size of 0 where it would pass 2^31 - 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxiFilterGetBufSize_64f_C1R(int kernelWidth, int kernelHeight, int roiWidth, int* pBufferSize);

/**
 * @brief Convolves double pixels with a kernel about an anchor, reading around the region what stands there.
 *
 * `dst(x, y)` is the sum over r, c of `K[r][c] * src(x + anchorX - c, y + anchorY - r)`. From the kernel's last
 * coefficient to its first, every other tap of a row goes to one sum and the rest to a second, both from 0 and joined
 * at the end. The h9 build fuses multiply and add; the other four are equal bit for bit. NaN and infinity spread to the
 * outputs whose windows hold them.
 *
 * @param pSrc          first pixel of the region, at any address; the kernel's reach around it is read too
 * @param srcStep       bytes from row to row, at least 8 * (@p roiWidth + @p kernelWidth - 1)
 * @param pDst          first output, at any address; must not overlap the pixels read
 * @param dstStep       bytes from row to row of the outputs, at least 8 * @p roiWidth; gaps aren't written
 * @param roiWidth      width of the region
 * @param roiHeight     height of the region
 * @param pKernel       the kernel, row by row, at any alignment
 * @param kernelWidth   width of the kernel
 * @param kernelHeight  height of the kernel
 * @param anchorX       column of the kernel that meets the output's own pixel; not checked, may lie outside
 * @param anchorY       row of the kernel that does
 * @param pBuffer       work memory of the size noxiFilterGetBufSize_64f_C1R() told; at present not used, may be null
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a size below 1, then ::noxStsStepErr for a
 *         step below its least; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxiFilter_64f_C1R(const Nox64f pSrc[], int srcStep, Nox64f pDst[], int dstStep, int roiWidth, int roiHeight,
                   const Nox64f pKernel[], int kernelWidth, int kernelHeight, int anchorX, int anchorY,
                   NOX_NULLABLE Nox8u pBuffer[]);

NOX_END_DECLS

#endif
