// The packed figures as bytes of the program file. The assembler's .incbin keeps them out of the
// compiler's way; it knows both ELF and PE.
#if defined(_WIN32)
__asm__(
    ".section .rdata,\"dr\"\n"
#else
__asm__(
    ".section .rodata\n"
#endif
    ".global HopcastEngineFigures\n"
    ".balign 16\n"
    "HopcastEngineFigures:\n"
    ".incbin \"" HOPCAST_ENGINE_FIGURES
    "\"\n"
    ".balign 16\n"
    ".text\n");
