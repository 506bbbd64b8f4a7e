# mergeloom_delay(TARGET) makes a program load Windows's libraries with their first call. Most runs call none of these,
# and loading them takes a third of the time of a start.
set(delayed_functions_ole32 CLSIDFromProgID CoCreateInstance CoInitializeEx CoRegisterMessageFilter CoUninitialize
  StringFromGUID2)
set(delayed_functions_oleaut32 SysAllocStringLen SysFreeString SysStringLen VariantChangeType VariantClear
  VariantCopyInd VariantInit)
set(delayed_functions_user32 DispatchMessageW EnumWindows GetWindowLongPtrW GetWindowThreadProcessId IsWindowVisible
  MessageBoxW MsgWaitForMultipleObjects PeekMessageW PostThreadMessageW)
set(delayed_functions_advapi32 GetNamedSecurityInfoW GetUserNameW RegCloseKey RegGetValueW RegOpenKeyExW
  SetNamedSecurityInfoW)

set(delayed_libraries)
foreach(name ole32 oleaut32 user32 advapi32)
  set(library ${CMAKE_BINARY_DIR}/delayed_${name})
  list(JOIN delayed_functions_${name} "\n" functions)
  file(CONFIGURE OUTPUT ${library}.def CONTENT "LIBRARY ${name}.dll\nEXPORTS\n${functions}\n")
  add_custom_command(OUTPUT ${library}.a DEPENDS ${library}.def
    COMMAND x86_64-w64-mingw32-dlltool --input-def ${library}.def --output-delaylib ${library}.a)
  list(APPEND delayed_libraries ${library}.a)
endforeach()
add_custom_target(delayed_libraries DEPENDS ${delayed_libraries})

function(mergeloom_delay target)
  add_dependencies(${target} delayed_libraries)
  # They are first and whole, so that nothing is left to be found in the compiler's import libraries.
  target_link_options(${target} PRIVATE -Wl,--whole-archive ${delayed_libraries} -Wl,--no-whole-archive)
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${delayed_libraries})
endfunction()
