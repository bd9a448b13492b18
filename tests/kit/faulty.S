/* Functions that break the calling convention, one way each, to try the probe with. */
  .text
.macro function name
  .globl \name
  .hidden \name
  .type \name, @function
\name:
.endm

function faulty_nothing
  xorl %eax, %eax
  ret
function faulty_ebx
  movl $1, %ebx
  ret
function faulty_esi
  movl $1, %esi
  ret
function faulty_edi
  movl $1, %edi
  ret
function faulty_ebp
  movl $1, %ebp
  ret
function faulty_stack
  ret $4
function faulty_direction
  std
  ret
function faulty_x87_left_full
  fldz
  ret
function faulty_mmx_left_open
  pxor %mm0, %mm0
  ret
function faulty_x87_control
  fnstcw -4(%esp)
  xorw $0x400, -4(%esp)
  fldcw -4(%esp)
  ret
function faulty_rounding
  stmxcsr -4(%esp)
  xorl $0x2000, -4(%esp)
  ldmxcsr -4(%esp)
  ret
function faulty_flush_to_zero
  stmxcsr -4(%esp)
  xorl $0x8000, -4(%esp)
  ldmxcsr -4(%esp)
  ret
function faulty_upper_half
  vpcmpeqd %xmm5, %xmm5, %xmm5
  vinsertf128 $1, %xmm5, %ymm5, %ymm5
  ret
function faulty_no_real
  ret
/* Its stack pointer modulo 16, seen from the caller. */
function kit_stack_offset
  leal 4(%esp), %eax
  andl $15, %eax
  ret
  .section .note.GNU-stack, "", @progbits
