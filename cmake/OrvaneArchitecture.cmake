# What is built for: ORVANE_BITS, 32 or 64, and the processor as manifests name it.
math(EXPR ORVANE_BITS "8 * ${CMAKE_SIZEOF_VOID_P}")
if(ORVANE_BITS EQUAL 32)
  set(ORVANE_ARCHITECTURE x86)
else()
  set(ORVANE_ARCHITECTURE amd64)
endif()
