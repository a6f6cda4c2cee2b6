#include "reports/enquiry_other/digit_class_sums.h"
#include "reports/report_registry.h"

namespace numarel {

std::span<const ReportDefinition> EnquiryOtherReports() {
    static constexpr ReportDefinition kReports[] = {
        {"frmbjiouhe", BuildSumOfOddSumOfEven},
        {"frmbxiaodahe", BuildSumOfSmallSumOfBig},
        {"frmbzhihehe", BuildSumOfPrimeSumOfComposite},
        {"frm3shu5luhe", BuildSumOfRemaindersBy5},
    };
    return kReports;
}

}  // namespace numarel
